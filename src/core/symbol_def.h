// SymbolDef: one symbol of a host's symbol table, and the classes of the host's raw types.
// The table owns the records; nodes point at them. Record addresses never change.
#pragma once

#include <cstdint>

#include "shared/names.h"

namespace quillon {

// Type classes, bits 0 to 5 of SymbolDef::bits.
enum SymbolClass : uint32_t {
  SymbolUnknown = 1,
  SymbolClass2 = 2,
  SymbolSeries = 4,
  SymbolClass8 = 8,
  SymbolOther = 16,
  SymbolSeries32 = 32,
};
// Classes whose first index is a lag: lagging an expression moves them.
inline constexpr uint32_t kLaggedClasses = SymbolSeries | SymbolSeries32;
inline constexpr uint32_t kClassBits = 0x3F;
inline constexpr uint32_t kUnknownRawType = 199;

struct SymbolDef {
  char name[kNameLimit];
  uint32_t hash;
  uint32_t bits;     // class in bits 0-5, the host's own bits above
  uint32_t rawType;  // the host's type code; 199 for unknown
};

// The class bit of a raw type.
uint32_t SymbolClassOf(uint32_t rawType);

}  // namespace quillon
