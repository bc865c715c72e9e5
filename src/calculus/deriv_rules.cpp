// The rules of @deriv of deriv_rules.h, and the helpers that the chain rule shares with them.
#include "calculus/deriv_rules.h"

#include <optional>

#include "calculus/depends_on.h"
#include "calculus/symbol_filter.h"
#include "calculus/symbol_term_index.h"
#include "core/function_node.h"
#include "core/int_node.h"
#include "core/node_order.h"
#include "core/void_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// Replaces node by the integer 0 and gives the new node.
ENode* Zero(ENode* node) { return ReplaceNode(node, new IntENode(0)); }

// Moves the factors of product that do not depend on x, in order, into a new @times; null when
// every factor depends on x.
ENode* TakeConstantFactors(ENode* product, const ENode* x) {
  ENode* constants = nullptr;
  for (ENode* factor = product->firstChild; factor != nullptr;) {
    ENode* following = factor->next;
    if (!DependsOn(factor, x)) {
      if (constants == nullptr) constants = NewCall(fnTimes);
      MoveToEnd(constants, factor);
    }
    factor = following;
  }
  return constants;
}

// The power rule when only the exponent, only the base, or both depend on x; call is @deriv(x)
// once the power has been taken out.
ENode* ExponentRule(ENode* call, ENode* power) {
  call->PrependChild(power->lastChild->Clone());
  return WrapWith(NewCall(fnTimes, {power, NewCall(fnLog, {power->firstChild->Clone()})}), call);
}

ENode* BaseRule(ENode* call, ENode* power) {
  ENode* exponent = power->lastChild;
  ENode* factor = exponent->Clone();
  WrapIn(fnPlus, exponent)->PrependChild(new IntENode(-1));
  power->flags &= ~FlagSettled;
  call->PrependChild(power->firstChild->Clone());
  return WrapWith(NewCall(fnTimes, {power, factor}), call);
}

ENode* BaseAndExponentRule(ENode* call, ENode* power) {
  const ENode* base = power->firstChild;
  const ENode* exponent = power->lastChild;
  ENode* result = NewCall(fnTimes);
  call->SwapPlaces(result);
  call->PrependChild(base->Clone());
  ENode* byBase = NewCall(fnTimes, {exponent->Clone(), NewCall(fnPow, {base->Clone(), new IntENode(-1)}), call});
  ENode* byExponent = NewCall(fnTimes, {NewDeriv(exponent->Clone(), call->lastChild),
                                        NewCall(fnLog, {base->Clone()})});
  result->AppendChild(NewCall(fnPlus, {byBase, byExponent}));
  result->AppendChild(power);
  return result;
}

// v (an element of the gradient's list) goes into the void slot of derivative, which takes
// v's place.
void PutIntoSlot(ENode* v, ENode* derivative) {
  v->SwapPlaces(derivative);
  ENode* slot = derivative->lastChild;
  slot->SwapPlaces(v);
  slot->DestroyTree();
  v->flags &= ~FlagSettled;
}

// @deriv(@plus(copies of the terms that depend on v), void).
ENode* RestrictedDerivative(const SymbolTermIndex& index, const ENode* v) {
  ENode* sum = NewCall(fnPlus);
  for (const ENode* term : index.DependentTerms(v)) sum->AppendChild(term->Clone());
  return NewCall(fnDeriv, {sum, new VoidENode()});
}

}  // namespace

ENode* NewDeriv(ENode* e, const ENode* x) { return NewCall(fnDeriv, {e, x->Clone()}); }

bool IsDerivOfCall(const ENode* call, const FunctionDef* def) {
  return call->childCount == 2 && IsCallOf(call->firstChild, def);
}

uint32_t DerivRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2) return 0;
  const ENode* e = call->firstChild;
  const ENode* x = call->lastChild;
  if (NodeEqual(e, x)) {
    *node = ReplaceNode(call, new IntENode(1));
    return 1;
  }
  if (DependsOn(e, x)) return 0;
  *node = Zero(call);
  return 1;
}

uint32_t DerivRule2::Apply(ENode** node) {
  ENode* call = *node;
  if (!IsDerivOfCall(call, fnPlus)) return 0;
  ENode* sum = call->firstChild;
  for (ENode* term = sum->firstChild; term != nullptr;) {
    ENode* following = term->next;
    if (!DependsOn(term, call->lastChild)) term->DestroyTree();
    term = following;
  }
  sum->DistributeOverList();
  *node = sum;
  return 1;
}

uint32_t DerivRule3::Apply(ENode** node) {
  ENode* call = *node;
  if (!IsDerivOfCall(call, fnTimes)) return 0;
  ENode* product = call->firstChild;
  ENode* constants = TakeConstantFactors(product, call->lastChild);
  if (product->childCount == 0) {
    if (constants != nullptr) constants->DestroyTree();
    *node = Zero(call);
    return 1;
  }
  if (constants == nullptr) {
    *node = ApplyProductRule(call);
    return 1;
  }
  WrapWith(constants, call);
  if (product->childCount == 1)
    product->Splice();
  else
    ApplyProductRule(call);
  *node = constants;
  return 1;
}

// Factor i of the i-th term is replaced by its derivative in a copy of the product; the last
// term is the product itself, with the @deriv node in place of its last factor.
ENode* DerivRule3::ApplyProductRule(ENode* call) {
  ENode* product = call->firstChild;
  ENode* sum = NewCall(fnPlus);
  for (int32_t i = 0; i + 1 < product->childCount; ++i) {
    ENode* term = product->Clone();
    WrapIn(fnDeriv, ChildAt(term, i))->AppendChild(call->lastChild->Clone());
    term->flags &= ~FlagSettled;
    sum->AppendChild(term);
  }
  call->SwapPlaces(sum);
  product->Unlink();
  ENode* last = product->lastChild;
  last->SwapPlaces(call);
  call->PrependChild(last);
  product->flags &= ~FlagSettled;
  sum->AppendChild(product);
  return sum;
}

uint32_t DerivRule4::Apply(ENode** node) {
  ENode* call = *node;
  if (!IsDerivOfCall(call, fnPow) || call->firstChild->childCount != 2) return 0;
  ENode* power = call->firstChild;
  const bool inBase = DependsOn(power->firstChild, call->lastChild);
  const bool inExponent = DependsOn(power->lastChild, call->lastChild);
  if (!inBase && !inExponent) {
    *node = Zero(call);
    return 1;
  }
  power->Unlink();
  if (!inBase)
    *node = ExponentRule(call, power);
  else if (!inExponent)
    *node = BaseRule(call, power);
  else
    *node = BaseAndExponentRule(call, power);
  return 1;
}

uint32_t DerivRule5::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount < 3) return 0;
  while (call->childCount > 2) call->SplitChildren(call->childCount - 1, true);
  return 1;
}

uint32_t DerivRule7::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount >= 1 && IsCallOf(call->firstChild, fnList)) {
    ENode* list = call->firstChild;
    list->DistributeOverList();
    *node = list;
    return 1;
  }
  if (call->childCount != 2 || !IsCallOf(call->lastChild, fnList)) return 0;
  *node = Gradient(call);
  return 1;
}

// The list takes the call's place; each element v becomes @deriv(e, v), or 0. The call, left
// holding e and a void slot, is the template of the elements and is freed at the end.
ENode* DerivRule7::Gradient(ENode* call) {
  const ENode* e = call->firstChild;
  ENode* list = call->lastChild;
  SymbolFilter filter;
  filter.Add(e);
  std::optional<SymbolTermIndex> index;
  if (IsCallOf(e, fnPlus)) index.emplace(e);
  ENode* slot = new VoidENode();
  list->SwapPlaces(slot);
  call->SwapPlaces(list);
  list->flags &= ~FlagSettled;
  for (ENode* v = list->firstChild; v != nullptr;) {
    ENode* following = v->next;
    if (v->GetType() != SymbolType || !filter.MayHold(v))
      Zero(v);
    else
      PutIntoSlot(v, index ? RestrictedDerivative(*index, v) : call->Clone());
    v = following;
  }
  call->DestroyTree();
  return list;
}

uint32_t DerivRule8::Apply(ENode** node) {
  ENode* call = *node;
  if (!IsDerivOfCall(call, fnRecode) || call->firstChild->childCount != 3) return 0;
  ENode* recode = call->firstChild;
  recode->Unlink();
  call->SwapPlaces(recode);
  WrapIn(fnDeriv, ChildAt(recode, 1))->AppendChild(call->lastChild->Clone());
  ENode* otherBranch = recode->lastChild;
  otherBranch->SwapPlaces(call);
  call->PrependChild(otherBranch);
  recode->flags &= ~FlagSettled;
  *node = recode;
  return 1;
}

}  // namespace quillon
