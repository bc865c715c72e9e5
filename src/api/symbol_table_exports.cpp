// The four exports of symbol tables. A table is the host's: the library never frees one itself.
#include "api/handle.h"
#include "language/symbol_table.h"

using namespace quillon;

extern "C" {

QUILLON_API mathsymtable* QUILLON_CALL mathsymtable_create(mathsymtable_resolver resolver, uint32_t autoAdd) {
  return reinterpret_cast<mathsymtable*>(new SymbolTable(resolver, autoAdd));
}

QUILLON_API uint32_t QUILLON_CALL mathsymtable_add(mathsymtable* t, const char* name, int32_t type) {
  return t != nullptr && TableOf(t)->Add(name, type);
}

QUILLON_API uint32_t QUILLON_CALL mathsymtable_add_ex(mathsymtable* t, const char* name, int32_t type,
                                                      uint32_t extra) {
  return t != nullptr && TableOf(t)->AddEx(name, type, extra);
}

QUILLON_API void QUILLON_CALL mathsymtable_destroy(mathsymtable* t) { delete TableOf(t); }

}  // extern "C"
