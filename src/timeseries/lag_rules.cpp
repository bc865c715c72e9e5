// LagRule1 and LagRule2; see lag_rules.h.
#include "timeseries/lag_rules.h"

#include "core/function_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"
#include "timeseries/lagged_terms.h"

namespace quillon {

uint32_t LagRule1::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2 || call->lastChild->GetType() != IntType) return 0;
  ENode* e = call->firstChild;
  e->ShiftSymbols(NegateWrapping(IntValue(call->lastChild)));
  *node = ReplaceByChild(call, e);
  return 1;
}

uint32_t LagRule2::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2 || !IsCallOf(call->lastChild, fnList)) return 0;
  ENode* lags = call->lastChild;
  lags->DistributeOverList();
  *node = lags;
  return 1;
}

}  // namespace quillon
