// The chain rule, @HasUnknownDerivs and @derivx; see function_deriv_rules.h.
#include "calculus/function_deriv_rules.h"

#include "calculus/depends_on.h"
#include "calculus/deriv_rules.h"
#include "core/bool_node.h"
#include "core/function_node.h"
#include "core/int_node.h"
#include "core/tree_walk.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// Raises the order of differentiation of the function node f in argument i (from 0) by one.
// Four bits per argument: the ninth argument shares the field of the first, order 15 + 1 clears
// its field and sets the lowest bit of the next one with no further carry, and at the eighth
// argument it carries out of the word. Hosts read these orders back as text; keep the wraps.
void RaiseOrder(ENode* f, int32_t i) {
  uint32_t& derivative = static_cast<FunctionENode*>(f)->derivative;
  const uint32_t shift = (4u * static_cast<uint32_t>(i)) % 32u;
  const uint32_t order = (derivative >> shift) & 15u;
  derivative = (derivative & ~(15u << shift)) | ((order + 1u) << shift);
}

// f[...+1 at i](a...) * @deriv(ai, x), from a copy of f.
ENode* ChainTerm(const ENode* f, int32_t i, const ENode* argument, const ENode* x) {
  ENode* raised = f->Clone();
  RaiseOrder(raised, i);
  return NewCall(fnTimes, {raised, NewDeriv(argument->Clone(), x)});
}

// The call's first argument f is replaced by a copy of argument and f moves in front of the
// call into a new product that takes the call's place. Returns the product.
ENode* StartChain(ENode* call, ENode* f, const ENode* argument) {
  f->SwapPlaces(argument->Clone());
  f->flags &= ~FlagSettled;
  ENode* product = NewCall(fnTimes, {f});
  return WrapWith(product, call);
}

// Walks by the links, so deep trees are safe.
bool HoldsDerivativeNotation(const ENode* e) {
  for (const ENode* n = e; n != nullptr; n = NextInPreorder(n, e))
    if (n->GetType() == FunctionType && static_cast<const FunctionENode*>(n)->derivative != 0) return true;
  return false;
}

}  // namespace

uint32_t DerivRule6::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2 || call->firstChild->GetType() != FunctionType) return 0;
  ENode* f = call->firstChild;
  const ENode* x = call->lastChild;
  ENode* product = nullptr;
  ENode* sum = nullptr;
  int32_t first = 0;
  int32_t i = 0;
  for (const ENode* argument = f->firstChild; argument != nullptr; argument = argument->next, ++i) {
    if (!DependsOn(argument, x)) continue;
    if (product == nullptr) {
      first = i;
      product = StartChain(call, f, argument);
      continue;
    }
    if (sum == nullptr) sum = NewCall(fnPlus);
    sum->AppendChild(ChainTerm(f, i, argument, x));
  }
  if (product == nullptr) {
    *node = ReplaceNode(call, new IntENode(0));
    return 1;
  }
  if (sum != nullptr) {
    product->SwapPlaces(sum);
    sum->PrependChild(product);
  }
  RaiseOrder(f, first);
  *node = sum != nullptr ? sum : product;
  return 1;
}

uint32_t HasUnknownDerivsRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 1) return 0;
  *node = ReplaceNode(call, new BoolENode(HoldsDerivativeNotation(call->firstChild)));
  return 1;
}

uint32_t DerivxRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 3 || call->lastChild->GetType() != IntType) return 0;
  const int32_t n = static_cast<const IntENode*>(call->lastChild)->value;
  ENode* e = call->firstChild;
  ENode* x = e->next;
  ENode* list = NewCall(fnList);
  if (n >= 1) {
    x->Unlink();
    ENode* derivative = NewCall(fnDeriv, {e->Clone(), x});
    list->AppendChild(derivative);
    for (int32_t k = 1; k < n; ++k) {
      derivative = derivative->Clone();
      derivative->AppendChild(x->Clone());
      list->AppendChild(derivative);
    }
  }
  if (n >= 0) {
    e->Unlink();
    list->PrependChild(e);
  }
  *node = ReplaceNode(call, list);
  return 1;
}

}  // namespace quillon
