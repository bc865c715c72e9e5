// MovsumRule1 and MovavRule1; see moving_rules.h.
#include "timeseries/moving_rules.h"

#include "core/int_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"
#include "timeseries/lagged_terms.h"

namespace quillon {
namespace {

// The window length of @movsum(e, n) or @movav(e, n), or 0 when the call has no such form.
int32_t WindowLength(const ENode* call) {
  if (call->childCount != 2 || call->lastChild->GetType() != IntType) return 0;
  const int32_t n = IntValue(call->lastChild);
  return n >= 1 ? n : 0;
}

// e becomes @plus(e, @times(1, e(-1)), ...) in its place, n terms in all. Returns the sum.
ENode* WrapInWindow(ENode* e, int32_t n) {
  ENode* sum = WrapIn(fnPlus, e);
  for (int32_t k = 1; k < n; ++k) AppendLaggedTerm(sum, 1, e, k);
  return sum;
}

}  // namespace

uint32_t MovsumRule1::Apply(ENode** node) {
  ENode* call = *node;
  const int32_t n = WindowLength(call);
  if (n == 0) return 0;
  *node = ReplaceByChild(call, WrapInWindow(call->firstChild, n));
  return 1;
}

uint32_t MovavRule1::Apply(ENode** node) {
  ENode* call = *node;
  const int32_t n = WindowLength(call);
  if (n == 0) return 0;
  ENode* mean = WrapIn(fnTimes, WrapInWindow(call->firstChild, n));
  ENode* share = NewCall(fnPow);
  mean->AppendChild(share);
  share->AppendChild(new IntENode(n));
  share->AppendChild(new IntENode(-1));
  *node = ReplaceByChild(call, mean);
  return 1;
}

}  // namespace quillon
