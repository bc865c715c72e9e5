// SymbolTable: the object behind a host's mathsymtable, which tells the parser which names are
// the host's objects and of what type; it may fill itself through the host's resolver.
#pragma once

#include <cstdint>

#include "core/name_table.h"
#include "core/symbol_def.h"
#include "quillon.h"

namespace quillon {

class SymbolTable {
 public:
  SymbolTable(mathsymtable_resolver resolver, uint32_t autoAdd) : resolver(resolver), autoAdd(autoAdd) {}

  // Adds a symbol (or finds it) and stores its type; returns whether it is new. The class of the
  // type goes into bits 0-5; with extra, the bits above are replaced by those of extra.
  bool Add(const char* name, int32_t type);
  bool AddEx(const char* name, int32_t type, uint32_t extra);

  SymbolDef* Find(const char* name, uint32_t hash) const { return symbols.Find(name, hash); }

  // The symbol for a name the catalogue does not know, by the table's own rules: only what was
  // added, or what the resolver knows, or (with autoAdd) every name. Null when refused.
  SymbolDef* Resolve(const char* name, uint32_t hash);

  NameTable<SymbolDef> symbols;
  mathsymtable_resolver resolver;
  uint32_t autoAdd;

 private:
  NameTable<SymbolDef>::AddResult AddName(const char* name, uint32_t hash);
};

}  // namespace quillon
