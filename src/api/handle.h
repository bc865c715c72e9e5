// The boundary between the C interface and the engine: a mathexpr is a heap ExprHandle.
#pragma once

#include "core/expr_handle.h"
#include "quillon.h"

namespace quillon {

class SymbolTable;
inline SymbolTable* TableOf(mathsymtable* t) { return reinterpret_cast<SymbolTable*>(t); }
inline ExprHandle* HandleOf(mathexpr* e) { return reinterpret_cast<ExprHandle*>(e); }
inline ENode* RootOf(mathexpr* e) { return HandleOf(e)->Root(); }
// Gives a handle to the host, which destroys it with mathexpr_destroy.
inline mathexpr* ToHost(ExprHandle handle) { return reinterpret_cast<mathexpr*>(new ExprHandle(handle)); }

}  // namespace quillon
