// The boundary between the C interface and the engine: a mathexpr is a heap ExprHandle.
#pragma once

#include "core/expr_handle.h"
#include "quillon.h"

namespace quillon {

class SymbolTable;
inline SymbolTable* TableOf(mathsymtable* t) { return reinterpret_cast<SymbolTable*>(t); }
inline ExprHandle* HandleOf(mathexpr* e) { return reinterpret_cast<ExprHandle*>(e); }
inline ENode* RootOf(mathexpr* e) { return HandleOf(e)->Root(); }
// Whether the root's class is in mask; false for a NULL handle, which every export answers with
// its neutral result instead of touching it.
inline bool RootIs(mathexpr* e, uint32_t mask) { return e != nullptr && (RootOf(e)->GetType() & mask) != 0; }
// Gives a handle to the host, which destroys it with mathexpr_destroy.
inline mathexpr* ToHost(ExprHandle handle) { return reinterpret_cast<mathexpr*>(new ExprHandle(handle)); }

}  // namespace quillon
