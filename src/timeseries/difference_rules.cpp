// The rules of d and dlog; see difference_rules.h.
#include "timeseries/difference_rules.h"

#include "core/function_node.h"
#include "core/int_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"
#include "timeseries/lagged_terms.h"

namespace quillon {
namespace {

// Marks a call changed in place, so that the driver passes over it again.
uint32_t Changed(ENode* call) {
  call->flags &= ~FlagSettled;
  return 1;
}

}  // namespace

uint32_t DifferenceRule1::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount == 1) {
    call->AppendChild(new IntENode(1));
    return Changed(call);
  }
  if (call->childCount < 2 || call->childCount > 3 || !IsIntValue(call->firstChild->next, 0)) return 0;
  const ENode* third = call->firstChild->next->next;
  if (third == nullptr || IsIntValue(third, 0)) {
    *node = ReplaceByChild(call, call->firstChild);
    return 1;
  }
  if (!IsIntValue(third, 1)) return 0;
  call->firstChild->next->DestroyTree();
  return Changed(call);
}

uint32_t DifferenceRule2::Apply(ENode** node) {
  ENode* outer = *node;
  ENode* inner = outer->firstChild;
  if (outer->childCount < 2 || !IsCallOf(inner, fnD) || inner->childCount < 2) return 0;
  ENode* outerOrder = inner->next;
  ENode* innerOrder = inner->firstChild->next;
  inner->Splice();
  ENode* order = NewCall(fnPlus);
  MoveToEnd(order, outerOrder);
  innerOrder->SwapPlaces(order);
  order->AppendChild(innerOrder);
  return Changed(outer);
}

uint32_t DifferenceRule3::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount < 4) return 0;
  ENode* e = call->firstChild;
  ENode* lag = e->next->next->next;
  while (lag != nullptr) {
    ENode* following = lag->next;
    lag->Unlink();
    ENode* single = WrapIn(fnD, e);
    single->AppendChild(new IntENode(0));
    single->AppendChild(lag);
    lag = following;
  }
  return Changed(call);
}

uint32_t DifferenceRule5::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2 || !IsIntValue(call->lastChild, 1)) return 0;
  call->lastChild->DestroyTree();
  return Changed(call);
}

uint32_t DifferenceRule6::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount == 0 || !IsCallOf(call->firstChild, fnLog)) return 0;
  call->firstChild->Splice();
  static_cast<FunctionENode*>(call)->def = fnDlog;
  return Changed(call);
}

uint32_t DifferenceRule7::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount < 2 || call->lastChild->GetType() != IntType) return 0;
  const bool hadLags = TakeSeasonalLags(call);
  const ENode* order = call->firstChild->next;
  if (order->GetType() != IntType || IntValue(order) < 1) return hadLags ? Changed(call) : 0;
  *node = ExpandOrder(call, IntValue(order));
  return 1;
}

bool DifferenceRule7::TakeSeasonalLags(ENode* call) {
  if (call->childCount < 3) return false;
  ENode* argument = call->lastChild;
  while (call->childCount > 2) {
    ENode* before = argument->prev;
    const bool reachedFirst = before == call->firstChild;
    if (argument->GetType() == IntType) {
      const int32_t lag = IntValue(argument);
      argument->DestroyTree();
      WrapInChange(call->firstChild, lag);
    }
    if (reachedFirst) break;
    argument = before;
  }
  return true;
}

ENode* DifferenceRule7::ExpandOrder(ENode* call, int32_t n) {
  ENode* u = call->firstChild;
  ENode* sum = WrapIn(fnPlus, u);
  int32_t coefficient = 1;
  for (int32_t k = 1; k <= n; ++k) {
    // c(k) = -(n + 1 - k) * c(k-1) / k: the product first, exact division, wrapping in 32 bits.
    const auto product = static_cast<int32_t>(static_cast<uint32_t>(n - k + 1) * static_cast<uint32_t>(coefficient));
    coefficient = NegateWrapping(product / k);
    AppendLaggedTerm(sum, coefficient, u, k);
  }
  return ReplaceByChild(call, sum);
}

uint32_t LogDiffRule1::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount == 0) return 0;
  WrapIn(fnLog, call->firstChild);
  static_cast<FunctionENode*>(call)->def = fnD;
  return Changed(call);
}

}  // namespace quillon
