// Result readers: rule wrappers whose answer the host gets as plain values. A call that no rule
// answered, or an error, reads as "no": the class of the root is checked before any value.
#include "api/rule_call.h"
#include "core/bool_node.h"
#include "core/int_node.h"
#include "core/well_known.h"

using namespace quillon;

namespace {

uint32_t TruthOf(const ExprHandle& answer) {
  const ENode* root = answer.Root();
  return root->GetType() == BoolType && static_cast<const BoolENode*>(root)->value != 0;
}

// The values of the first and last child of an answered range, when both are integers.
bool ReadBounds(const ENode* root, int32_t* first, int32_t* last) {
  if (root->GetType() != FunctionType || root->childCount == 0) return false;
  if (root->firstChild->GetType() != IntType || root->lastChild->GetType() != IntType) return false;
  *first = static_cast<const IntENode*>(root->firstChild)->value;
  *last = static_cast<const IntENode*>(root->lastChild)->value;
  return true;
}

}  // namespace

extern "C" {

QUILLON_API uint32_t QUILLON_CALL mathexpr_is_constant(mathexpr* e, mathexpr* v) {
  return TruthOf(EvaluateCall(fnIsConstant, {e, v}));
}

QUILLON_API uint32_t QUILLON_CALL mathexpr_is_linear(mathexpr* e, mathexpr* v) {
  return TruthOf(EvaluateCall(fnIsLinear, {e, v}));
}

// 1 when the range is not empty; low and high are written only for an answered range.
QUILLON_API uint32_t QUILLON_CALL mathexpr_irange1d(mathexpr* e, mathexpr* s, int32_t* low, int32_t* high) {
  const ExprHandle answer = EvaluateCall(fnIRange1D, {e, s});
  int32_t first = 0, last = 0;
  if (!ReadBounds(answer.Root(), &first, &last)) return 0;
  *low = first;
  *high = last;
  return last >= first;
}

// The four children of an answered range go to low1, high1, low2, high2; only the first pair
// decides the result.
QUILLON_API uint32_t QUILLON_CALL mathexpr_irange2d(mathexpr* e, mathexpr* s, int32_t* low1, int32_t* high1,
                                                   int32_t* low2, int32_t* high2) {
  const ExprHandle answer = EvaluateCall(fnIRange2D, {e, s});
  const ENode* root = answer.Root();
  if (root->GetType() != FunctionType || root->childCount != 4) return 0;
  int32_t* outputs[4] = {low1, high1, low2, high2};
  int32_t values[4];
  int32_t i = 0;
  for (const ENode* c = root->firstChild; c != nullptr; c = c->next, ++i) {
    if (c->GetType() != IntType) return 0;
    values[i] = static_cast<const IntENode*>(c)->value;
  }
  for (i = 0; i < 4; ++i) *outputs[i] = values[i];
  return values[1] >= values[0];
}

}  // extern "C"
