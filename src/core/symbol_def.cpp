// The mapping from a host's raw type codes to type classes.
#include "core/symbol_def.h"

namespace quillon {

uint32_t SymbolClassOf(uint32_t rawType) {
  switch (rawType) {
    case 199: return SymbolUnknown;
    case 43: return SymbolClass2;
    case 15: case 44: case 45: return SymbolSeries;
    case 35: case 40: case 41: case 42: return SymbolClass8;
    case 1: return SymbolSeries32;
    default: return SymbolOther;
  }
}

}  // namespace quillon
