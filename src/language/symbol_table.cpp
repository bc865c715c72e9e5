// Symbol tables: adding symbols and resolving the names the parser meets.
#include "language/symbol_table.h"

#include "shared/hash.h"

namespace quillon {
namespace {

void StoreType(SymbolDef* symbol, int32_t type, uint32_t upperBits) {
  symbol->rawType = static_cast<uint32_t>(type);
  symbol->bits = SymbolClassOf(symbol->rawType) | (upperBits & ~kClassBits);
}

}  // namespace

NameTable<SymbolDef>::AddResult SymbolTable::AddName(const char* name, uint32_t hash) {
  SymbolDef record;
  CopyName(record.name, name);
  record.hash = hash;
  record.bits = SymbolUnknown;
  record.rawType = kUnknownRawType;
  return symbols.Add(record);
}

bool SymbolTable::Add(const char* name, int32_t type) {
  SymbolDef probe;
  CopyName(probe.name, name);
  const auto [symbol, added] = AddName(probe.name, NameHash(probe.name, 0));
  StoreType(symbol, type, symbol->bits);
  return added;
}

bool SymbolTable::AddEx(const char* name, int32_t type, uint32_t extra) {
  SymbolDef probe;
  CopyName(probe.name, name);
  const auto [symbol, added] = AddName(probe.name, NameHash(probe.name, 0));
  StoreType(symbol, type, extra);
  return added;
}

SymbolDef* SymbolTable::Resolve(const char* name, uint32_t hash) {
  if (autoAdd != 0) {
    const auto [symbol, added] = AddName(name, hash);
    if (added && resolver != nullptr) StoreType(symbol, resolver(name), symbol->bits);
    return symbol;
  }
  if (SymbolDef* symbol = Find(name, hash)) return symbol;
  if (resolver == nullptr) return nullptr;
  const int32_t type = resolver(name);
  if (type == static_cast<int32_t>(kUnknownRawType)) return nullptr;
  SymbolDef* symbol = AddName(name, hash).record;
  StoreType(symbol, type, symbol->bits);
  return symbol;
}

}  // namespace quillon
