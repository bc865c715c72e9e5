// Lagged copies and changes over periods; see lagged_terms.h.
#include "timeseries/lagged_terms.h"

#include "core/int_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {

ENode* LaggedCopy(const ENode* e, int32_t lag) {
  return e->CloneShifted(NegateWrapping(lag));
}

void AppendLaggedTerm(ENode* sum, int32_t coefficient, const ENode* source, int32_t lag) {
  ENode* term = NewCall(fnTimes);
  sum->AppendChild(term);
  term->AppendChild(new IntENode(coefficient));
  term->AppendChild(LaggedCopy(source, lag));
}

ENode* WrapInChange(ENode* e, int32_t lag) {
  ENode* sum = WrapIn(fnPlus, e);
  AppendLaggedTerm(sum, -1, e, lag);
  return sum;
}

ENode* WrapInRelativeChange(ENode* e, int32_t lag) {
  ENode* change = WrapInChange(e, lag);
  const ENode* earlier = change->lastChild->lastChild;
  ENode* ratio = WrapIn(fnTimes, change);
  ENode* inverse = NewCall(fnPow);
  ratio->AppendChild(inverse);
  inverse->AppendChild(earlier->Clone());
  inverse->AppendChild(new IntENode(-1));
  return ratio;
}

int32_t NegateWrapping(int32_t value) { return static_cast<int32_t>(0u - static_cast<uint32_t>(value)); }

int32_t IntValue(const ENode* node) { return static_cast<const IntENode*>(node)->value; }

}  // namespace quillon
