// Linear forms, symbol lists, normal forms and the algebra of lists, each a call of its
// catalogued operation.
#include "api/rule_call.h"
#include "core/int_node.h"
#include "core/well_known.h"

using namespace quillon;

extern "C" {

QUILLON_API mathexpr* QUILLON_CALL mathexpr_lincoefs(mathexpr* e, mathexpr* v) { return CallForHost(fnLinCoefs, {e, v}); }

QUILLON_API mathexpr* QUILLON_CALL mathexpr_symlist(mathexpr* e, int32_t mask) {
  return CallForHost(fnSymList, {e, CallArgument(new IntENode(mask))});
}

QUILLON_API mathexpr* QUILLON_CALL mathexpr_normalize(mathexpr* eq, mathexpr* v) {
  return CallForHost(fnNormalize, {eq, v});
}

QUILLON_API mathexpr* QUILLON_CALL mathexpr_sort(mathexpr* list) { return CallForHost(fnSort, {list}); }

// The union of one list with nothing: its distinct items.
QUILLON_API mathexpr* QUILLON_CALL mathexpr_distinct(mathexpr* list) { return CallForHost(fnUnion, {list}); }

QUILLON_API mathexpr* QUILLON_CALL mathexpr_join(mathexpr* a, mathexpr* b) { return CallForHost(fnJoin, {a, b}); }
QUILLON_API mathexpr* QUILLON_CALL mathexpr_union(mathexpr* a, mathexpr* b) { return CallForHost(fnUnion, {a, b}); }

QUILLON_API mathexpr* QUILLON_CALL mathexpr_intersection(mathexpr* a, mathexpr* b) {
  return CallForHost(fnIntersection, {a, b});
}

QUILLON_API mathexpr* QUILLON_CALL mathexpr_complement(mathexpr* a, mathexpr* b) {
  return CallForHost(fnComplement, {a, b});
}

}  // extern "C"
