// Exports that touch only a handle and the node under it: make, copy, assign, inspect, walk
// and destroy expressions.
#include "api/handle.h"
#include "api/life_cycle.h"
#include "core/function_node.h"
#include "core/void_node.h"
#include "core/well_known.h"

using namespace quillon;

extern "C" {

QUILLON_API mathexpr* QUILLON_CALL mathexpr_create_void(void) { return ToHost(StartedEmpty()); }

QUILLON_API void QUILLON_CALL mathexpr_destroy(mathexpr* e) { delete HandleOf(e); }

QUILLON_API mathexpr* QUILLON_CALL mathexpr_clone(mathexpr* e) {
  return ToHost(e != nullptr ? *HandleOf(e) : StartedEmpty());
}

QUILLON_API void QUILLON_CALL mathexpr_assign(mathexpr* target, mathexpr* source) {
  if (target != nullptr && source != nullptr) *HandleOf(target) = *HandleOf(source);
}

QUILLON_API double QUILLON_CALL mathexpr_as_number(mathexpr* e) { return e != nullptr ? RootOf(e)->GetValue() : NA(); }

QUILLON_API uint32_t QUILLON_CALL mathexpr_is_error(mathexpr* e) { return RootIs(e, ErrorType); }
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_void(mathexpr* e) { return RootIs(e, VoidType); }
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_symbol(mathexpr* e) { return RootIs(e, SymbolType); }

QUILLON_API uint32_t QUILLON_CALL mathexpr_is_number(mathexpr* e) {
  return RootIs(e, BoolType | IntType | RationalType | RealType);
}

QUILLON_API int32_t QUILLON_CALL mathexpr_get_children(mathexpr* e) {
  if (e == nullptr) return 0;
  const ENode* root = RootOf(e);
  return IsCallOf(root, fnList) ? root->childCount : 0;
}

QUILLON_API mathexpr* QUILLON_CALL mathexpr_first_child(mathexpr* e) {
  if (e == nullptr) return ToHost(StartedEmpty());
  ENode* first = RootOf(e)->firstChild;
  return ToHost(first != nullptr ? ExprHandle(first) : ExprHandle());
}

QUILLON_API uint32_t QUILLON_CALL mathexpr_next_child(mathexpr** e) {
  if (e == nullptr || *e == nullptr) return 0;
  ENode* node = RootOf(*e);
  if (node->GetType() == VoidType) return 0;
  ENode* next = node->next;
  delete HandleOf(*e);
  *e = ToHost(next != nullptr ? ExprHandle(next) : ExprHandle());
  return next != nullptr;
}

}  // extern "C"
