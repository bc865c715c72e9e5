// The rules of @times declared in product_rules.h. Each follows its algorithm step by step:
// hosts see the order of children and which rule fired first, so the steps are kept as they are.
#include "rewrite/product_rules.h"

#include <vector>

#include "core/function_node.h"
#include "core/int_node.h"
#include "core/node_order.h"
#include "core/real_node.h"
#include "core/well_known.h"
#include "rewrite/expansion_size.h"
#include "rewrite/numeric_fold.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// ---- TimesRule

// Folds every numeric factor that follows a into a and frees it. a follows the node that now
// stands first. Returns whether anything was folded.
bool FoldLeadingNumbers(ENode*& a) {
  bool changed = false;
  while (a->next != nullptr && IsNumeric(a->next)) {
    ENode* b = a->next;
    a = FoldNumber(a, b, FoldOp::Multiply);
    b->DestroyTree();
    changed = true;
  }
  return changed;
}

// Frees every factor after the zero, and makes the zero an integer whatever its class.
uint32_t AbsorbIntoZero(ENode* zero) {
  while (zero->next != nullptr) zero->next->DestroyTree();
  if (zero->GetType() != IntType) ReplaceNode(zero, new IntENode(0));
  return 1;
}

// ---- TimesRule2

// A @pow with a base; one without children counts as a plain factor.
bool IsPower(const ENode* f) { return IsCallOf(f, fnPow) && f->firstChild != nullptr; }

const ENode* BaseOf(const ENode* f) { return IsPower(f) ? f->firstChild : f; }

// The first factor after s whose base differs from s's base, or null.
ENode* EndOfEqualBases(const ENode* s) {
  const ENode* base = BaseOf(s);
  ENode* u = s->next;
  while (u != nullptr && NodeEqual(BaseOf(u), base)) u = u->next;
  return u;
}

// Makes s a power whose exponent is a new sum holding s's own exponent (1 for a plain factor).
// Returns the sum, which is unsettled.
ENode* OpenExponentSum(ENode* s) {
  if (IsPower(s)) {
    s->flags &= ~FlagSettled;
    return WrapIn(fnPlus, s->lastChild);
  }
  ENode* sum = NewCall(fnPlus);
  WrapIn(fnPow, s)->AppendChild(sum);
  sum->AppendChild(new IntENode(1));
  return sum;
}

// Appends the exponent of each factor from `from` up to `end` to sum (1 for a plain factor), and
// frees the factors.
void MoveExponents(ENode* sum, ENode* from, const ENode* end) {
  for (ENode* f = from; f != end;) {
    ENode* following = f->next;
    if (IsPower(f)) {
      ENode* exponent = f->lastChild;
      exponent->Unlink();
      sum->AppendChild(exponent);
      f->DestroyTree();
    } else {
      f->DestroyTree();
      sum->AppendChild(new IntENode(1));
    }
    f = following;
  }
}

// ---- TimesRule4

// Whether some child is a sum, and whether one of those sums is empty.
struct SumFactors {
  bool any = false;
  bool empty = false;
};

SumFactors FindSums(const ENode* p) {
  SumFactors found;
  for (const ENode* c : Children(p)) {
    if (!IsCallOf(c, fnPlus)) continue;
    found.any = true;
    if (c->childCount == 0) found.empty = true;
  }
  return found;
}

// One cursor per factor: the first term of a sum, the factor itself otherwise.
std::vector<ENode*> FirstChoices(const ENode* p) {
  std::vector<ENode*> cursors;
  cursors.reserve(static_cast<size_t>(p->childCount));
  for (ENode* c : Children(p)) cursors.push_back(IsCallOf(c, fnPlus) ? c->firstChild : c);
  return cursors;
}

// Appends to sum a new product of copies of the chosen terms, in order.
void EmitProduct(ENode* sum, const std::vector<ENode*>& cursors) {
  ENode* product = NewCall(fnTimes);
  for (const ENode* term : cursors) product->AppendChild(term->Clone());
  sum->AppendChild(product);
}

// Moves to the next choice like an odometer, the last sum fastest. Factors that stand directly
// under p have no alternatives. Returns false when every choice has been made.
bool NextChoice(std::vector<ENode*>& cursors, const ENode* p) {
  for (size_t i = cursors.size(); i-- > 0;) {
    ENode*& cursor = cursors[i];
    if (cursor->parent == p) continue;
    if (cursor->next != nullptr) {
      cursor = cursor->next;
      return true;
    }
    cursor = cursor->parent->firstChild;
  }
  return false;
}

// ---- TimesRule5

// The part of factor c that belongs below the bar, unlinked from p, or null when c stays above:
// the power with its exponent negated (the base alone for an exponent of -1), or t of 1/t. A
// malformed power with more than base and exponent keeps only its base, and frees the rest.
ENode* TakeDenominator(ENode* c) {
  if (IsCallOf(c, fnPow) && c->lastChild != nullptr) {
    ENode* exponent = c->lastChild;
    if (!IsNumeric(exponent) || !exponent->IsNegative()) return nullptr;
    c->Unlink();
    if (!IsIntValue(exponent, -1)) {
      exponent->Negate();
      c->flags &= ~FlagSettled;
      return c;
    }
    exponent->DestroyTree();
    if (c->childCount == 0) return c;
    ENode* base = c->firstChild;
    base->Unlink();
    c->DestroyTree();
    return base;
  }
  if (IsCallOf(c, fnDivide) && c->childCount == 2 && IsIntValue(c->firstChild, 1)) {
    ENode* t = c->lastChild;
    t->Unlink();
    c->DestroyTree();
    return t;
  }
  return nullptr;
}

// Puts @divide(p, d) in p's place; an empty numerator becomes 1, and a numerator or denominator
// of one factor stands without its product. Returns the quotient.
ENode* BuildQuotient(ENode* p, ENode* d) {
  ENode* quotient = WrapIn(fnDivide, p);
  quotient->AppendChild(d);
  if (p->childCount == 0)
    ReplaceNode(p, new IntENode(1));
  else if (p->childCount == 1)
    p->Splice();
  if (d->childCount == 1) d->Splice();
  return quotient;
}

}  // namespace

uint32_t TimesRule::Apply(ENode** node) {
  ENode* p = *node;
  if (p->childCount == 0) {
    *node = ReplaceNode(p, new IntENode(1));
    return 1;
  }
  ENode* a = p->firstChild;
  if (!IsNumeric(a)) return 0;
  const bool changed = FoldLeadingNumbers(a);
  if (RealEqual(a->GetValue(), 0.0)) return AbsorbIntoZero(a);
  if (a->next == nullptr) return changed ? 1 : 0;
  if (RealEqual(a->GetValue(), 1.0)) {
    a->DestroyTree();
    return 1;
  }
  return changed ? 1 : 0;
}

uint32_t TimesRule3::Apply(ENode** node) {
  ENode* p = *node;
  if (p->childCount != 2) return 0;
  ENode* sum = p->lastChild;
  if (!IsCallOf(sum, fnPlus)) return 0;
  if (!IsIntValue(p->firstChild, -1)) return 0;
  *node = sum;
  sum->DistributeOverList();
  return 1;
}

uint32_t TimesRule2::Apply(ENode** node) {
  uint32_t changed = 0;
  for (ENode* s = (*node)->firstChild; s != nullptr;) {
    ENode* end = EndOfEqualBases(s);
    if (end == s->next) {
      s = end;
      continue;
    }
    changed = 1;
    ENode* run = s->next;
    ENode* exponents = OpenExponentSum(s);
    MoveExponents(exponents, run, end);
    s = end;
  }
  return changed;
}

uint32_t TimesRule4::Apply(ENode** node) {
  ENode* p = *node;
  const SumFactors sums = FindSums(p);
  if (!sums.any || sums.empty || ProductExpansionTerms(p) > kMaxExpansionTerms) return 0;
  std::vector<ENode*> cursors = FirstChoices(p);
  ENode* expanded = NewCall(fnPlus);
  do {
    EmitProduct(expanded, cursors);
  } while (NextChoice(cursors, p));
  *node = ReplaceNode(p, expanded);
  return 1;
}

uint32_t TimesRule5::Apply(ENode** node) {
  ENode* p = *node;
  ENode* d = nullptr;
  for (ENode* c = p->firstChild; c != nullptr;) {
    ENode* following = c->next;
    if (ENode* below = TakeDenominator(c)) {
      if (d == nullptr) d = NewCall(fnTimes);
      d->AppendChild(below);
    }
    c = following;
  }
  if (d == nullptr) return 0;
  *node = BuildQuotient(p, d);
  return 1;
}

uint32_t TimesRule6::Apply(ENode** node) {
  ENode* p = *node;
  if (p->childCount < 2 || !IsIntValue(p->firstChild, -1)) return 0;
  p->firstChild->DestroyTree();
  if (p->childCount != 1) {
    WrapIn(fnUnaryMinus, p->firstChild);
    return 1;
  }
  ENode* c = p->firstChild;
  if (IsCallOf(c, fnDivide) && c->firstChild != nullptr) {
    WrapIn(fnUnaryMinus, c->firstChild);
    *node = c;
  } else {
    *node = WrapIn(fnUnaryMinus, p);
  }
  p->Splice();
  return 1;
}

}  // namespace quillon
