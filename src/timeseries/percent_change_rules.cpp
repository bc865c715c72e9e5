// PchRule1, PchyRule1 and PchaRule1; see percent_change_rules.h.
#include "timeseries/percent_change_rules.h"

#include "core/well_known.h"
#include "rewrite/surgery.h"
#include "timeseries/lagged_terms.h"

namespace quillon {
namespace {

// Whether the call is f(e, s) with s an integer literal.
bool HasIntegerPeriod(const ENode* call) { return call->childCount == 2 && call->lastChild->GetType() == IntType; }

}  // namespace

uint32_t PchRule1::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 1) return 0;
  *node = ReplaceByChild(call, WrapInRelativeChange(call->firstChild, 1));
  return 1;
}

uint32_t PchyRule1::Apply(ENode** node) {
  ENode* call = *node;
  if (!HasIntegerPeriod(call)) return 0;
  *node = ReplaceByChild(call, WrapInRelativeChange(call->firstChild, IntValue(call->lastChild)));
  return 1;
}

uint32_t PchaRule1::Apply(ENode** node) {
  ENode* call = *node;
  if (!HasIntegerPeriod(call)) return 0;
  ENode* power = WrapIn(fnPow, WrapInRelativeChange(call->firstChild, 1));
  MoveToEnd(power, call->lastChild);
  *node = ReplaceByChild(call, power);
  return 1;
}

}  // namespace quillon
