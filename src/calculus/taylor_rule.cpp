// TaylorRule; see taylor_rule.h.
#include "calculus/taylor_rule.h"

#include <initializer_list>
#include <memory>

#include "core/function_node.h"
#include "core/int_node.h"
#include "core/well_known.h"
#include "rewrite/driver.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// Frees a free tree at the end of a scope, whatever happens in between.
struct TreeDeleter {
  void operator()(ENode* root) const { root->DestroyTree(); }
};
using OwnedTree = std::unique_ptr<ENode, TreeDeleter>;

ENode* Call(FunctionDef* def, std::initializer_list<ENode*> arguments) {
  ENode* call = NewCall(def);
  for (ENode* argument : arguments) call->AppendChild(argument);
  return call;
}

// The successive derivatives of f by x up to order n, simplified: @derivx run on copies.
OwnedTree Derivatives(const ENode* f, const ENode* x, const ENode* n) {
  ENode* call = Call(fnDerivx, {f->Clone(), x->Clone(), n->Clone()});
  return OwnedTree(Rewrite(call, ModeSimplify | ModeCanonical));
}

// The template of one term, with the derivative, the power and the argument of @fact missing:
// @divide(@times(@replace_expr(@eq(x, x0)), @pow(@minus(x, x0))), @fact()).
OwnedTree TermTemplate(const ENode* x, const ENode* x0) {
  ENode* point = Call(fnReplaceExpr, {Call(fnEq, {x->Clone(), x0->Clone()})});
  ENode* power = Call(fnPow, {Call(fnMinus, {x->Clone(), x0->Clone()})});
  return OwnedTree(Call(fnDivide, {Call(fnTimes, {point, power}), NewCall(fnFact)}));
}

bool IsExactZero(const ENode* derivative) { return IsNumeric(derivative) && derivative->GetValue() == 0.0; }

// The term of order k around derivative (taken).
ENode* Term(const ENode* termTemplate, ENode* derivative, int32_t k) {
  ENode* term = termTemplate->Clone();
  ENode* product = term->firstChild;
  product->firstChild->PrependChild(derivative);
  product->lastChild->AppendChild(new IntENode(k));
  term->lastChild->AppendChild(new IntENode(k));
  return term;
}

}  // namespace

uint32_t TaylorRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 4 || call->lastChild->GetType() != IntType) return 0;
  const ENode* f = call->firstChild;
  const ENode* x = f->next;
  const ENode* x0 = x->next;
  const int32_t order = static_cast<const IntENode*>(call->lastChild)->value;
  OwnedTree derivatives = Derivatives(f, x, call->lastChild);
  if (!IsCallOf(derivatives.get(), fnList)) return 0;
  const OwnedTree termTemplate = TermTemplate(x, x0);
  ENode* sum = NewCall(fnPlus);
  int32_t k = 0;
  for (ENode* d = derivatives->firstChild; d != nullptr && k <= order && !IsExactZero(d); ++k) {
    ENode* following = d->next;
    d->Unlink();
    sum->AppendChild(Term(termTemplate.get(), d, k));
    d = following;
  }
  *node = ReplaceNode(call, sum);
  return 1;
}

}  // namespace quillon
