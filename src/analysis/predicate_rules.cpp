// The predicate rules declared in predicate_rules.h. The linear and polynomial walks keep their
// pending subtrees on the heap, so a deep argument cannot exhaust the stack.
#include "analysis/predicate_rules.h"

#include <vector>

#include "calculus/depends_on.h"
#include "core/bool_node.h"
#include "core/function_node.h"
#include "core/tree_walk.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// The predicate's call gives way to its answer, a settled truth value.
uint32_t Answer(ENode** node, bool value) {
  *node = ReplaceNode(*node, new BoolENode(value));
  return 1;
}

// The predicate's expression and variables, when the call has exactly two arguments.
bool TwoArguments(const ENode* call, const ENode*& e, const ENode*& v) {
  if (call->childCount != 2) return false;
  e = call->firstChild;
  v = call->lastChild;
  return true;
}

// A question of the form "every subtree put on the list passes": each step looks at one
// subtree and may put smaller ones on the list, so a walk over nested sums and products takes
// heap, not stack.
using Pending = std::vector<const ENode*>;

template <class Step>
bool AllPass(const ENode* e, const ENode* v, Step step) {
  Pending pending{e};
  while (!pending.empty()) {
    const ENode* next = pending.back();
    pending.pop_back();
    if (!step(next, v, pending)) return false;
  }
  return true;
}

// Visits the terms of e, the children of a sum or e itself, until one fails.
template <class Visit>
bool EachTerm(const ENode* e, Visit visit) {
  if (!IsCallOf(e, fnPlus)) return visit(e);
  for (const ENode* term : Children(e))
    if (!visit(term)) return false;
  return true;
}

// ---- IsLinearRule

// A product term passes when at most one factor depends, and that factor is linear in turn.
bool LinearProduct(const ENode* term, const ENode* v, Pending& pending) {
  const ENode* dependent = nullptr;
  for (const ENode* factor : Children(term)) {
    if (!DependsOn(factor, v)) continue;
    if (dependent != nullptr) return false;
    dependent = factor;
  }
  if (dependent != nullptr) pending.push_back(dependent);
  return true;
}

bool LinearStep(const ENode* e, const ENode* v, Pending& pending) {
  if (e->GetType() != FunctionType) return true;
  if (!IsCallOf(e, fnPlus) && !IsCallOf(e, fnTimes)) return !DependsOn(e, v);
  return EachTerm(e, [&](const ENode* term) {
    if (term->GetType() != FunctionType) return true;
    if (IsCallOf(term, fnTimes)) return LinearProduct(term, v, pending);
    return !DependsOn(term, v);
  });
}

// ---- IsPolynomialRule

// A dependent factor passes as a power with a non-negative integer literal exponent whose base
// is a polynomial, or as a polynomial itself. A power with another number of arguments would be
// its own term again, so it is refused rather than looked at for ever.
bool PolynomialFactor(const ENode* factor, const ENode* v, Pending& pending) {
  if (!DependsOn(factor, v)) return true;
  if (!IsCallOf(factor, fnPow)) {
    pending.push_back(factor);
    return true;
  }
  if (factor->childCount != 2) return false;
  const ENode* exponent = factor->lastChild;
  if (exponent->GetType() != IntType || exponent->IsNegative()) return false;
  pending.push_back(factor->firstChild);
  return true;
}

bool PolynomialStep(const ENode* e, const ENode* v, Pending& pending) {
  if (e->GetType() != FunctionType) return true;
  if (!IsCallOf(e, fnPlus) && !IsCallOf(e, fnTimes) && !IsCallOf(e, fnPow)) return !DependsOn(e, v);
  return EachTerm(e, [&](const ENode* term) {
    if (term->GetType() != FunctionType) return true;
    if (IsCallOf(term, fnPow)) return PolynomialFactor(term, v, pending);
    if (!IsCallOf(term, fnTimes)) return !DependsOn(term, v);
    for (const ENode* factor : Children(term))
      if (!PolynomialFactor(factor, v, pending)) return false;
    return true;
  });
}

}  // namespace

bool NodeClassTest(const ENode* node, uint32_t mask, bool include, uint32_t attrMask, uint32_t attrWant) {
  for (const ENode* n = node; n != nullptr; n = NextInPreorder(n, node)) {
    if (((n->GetType() & mask) != 0) != include) return false;
    const FunctionDef* def = DefOf(n);
    if (def == nullptr) continue;
    const uint32_t selected = def->attributes & attrMask;
    if (attrWant == 0 ? selected != 0 : selected != def->attributes) return false;
  }
  return true;
}

uint32_t IsNumericRule::Apply(ENode** node) {
  if ((*node)->childCount != 1) return 0;
  return Answer(node, IsNumericTree((*node)->firstChild));
}

uint32_t IsConstantRule::Apply(ENode** node) {
  const ENode *e = nullptr, *v = nullptr;
  if (!TwoArguments(*node, e, v)) return 0;
  return Answer(node, !DependsOn(e, v));
}

uint32_t IsLinearRule::Apply(ENode** node) {
  const ENode *e = nullptr, *v = nullptr;
  if (!TwoArguments(*node, e, v)) return 0;
  return Answer(node, AllPass(e, v, LinearStep));
}

uint32_t IsPolynomialRule::Apply(ENode** node) {
  const ENode *e = nullptr, *v = nullptr;
  if (!TwoArguments(*node, e, v)) return 0;
  return Answer(node, AllPass(e, v, PolynomialStep));
}

}  // namespace quillon
