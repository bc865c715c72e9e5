// The rules of @plus declared in sum_rules.h. Each relies on the driver's sort: numbers first,
// like terms side by side, and the factors of every product in order.
#include "rewrite/sum_rules.h"

#include <vector>

#include "core/function_node.h"
#include "core/int_node.h"
#include "core/node_order.h"
#include "core/rational_node.h"
#include "core/real_node.h"
#include "core/well_known.h"
#include "rewrite/numeric_fold.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// --- PlusRule

// Folds the numbers that follow the numeric first child a into it, freeing them; a follows
// the node that stands first afterwards. True when anything was folded.
bool FoldLeadingNumbers(ENode*& a) {
  bool changed = false;
  for (ENode* b = a->next; b != nullptr && IsNumeric(b);) {
    ENode* following = b->next;
    a = FoldNumber(a, b, FoldOp::Add);
    b->DestroyTree();
    b = following;
    changed = true;
  }
  return changed;
}

// --- PlusRule2

bool HasCoefficient(const ENode* term) {
  return IsCallOf(term, fnTimes) && term->firstChild != nullptr && IsNumeric(term->firstChild);
}

// What a term is compared by: for a product, the chain of its factors after a numeric
// coefficient; otherwise the term alone.
struct TermKey {
  const ENode* key;
  bool product;
};

TermKey KeyOf(const ENode* term) {
  if (!IsCallOf(term, fnTimes)) return {term, false};
  return {HasCoefficient(term) ? term->firstChild->next : term->firstChild, true};
}

// Whether u differs from the term of key only by its coefficient. A chain compared with a
// plain u runs on over u's later siblings, so that only a last term can match it.
bool IsLike(const ENode* u, TermKey key) {
  if (!IsCallOf(u, fnTimes)) return key.product ? TailEqual(u, key.key) : NodeEqual(u, key.key);
  if (!HasCoefficient(u)) return key.product && TailEqual(u->firstChild, key.key);
  const ENode* rest = u->firstChild->next;
  if (!key.product) return u->childCount == 2 && NodeEqual(rest, key.key);
  return TailEqual(rest, key.key);
}

// The first sibling after term that is not like it.
ENode* EndOfLikeRun(const ENode* term) {
  const TermKey key = KeyOf(term);
  ENode* u = term->next;
  while (u != nullptr && IsLike(u, key)) u = u->next;
  return u;
}

// Puts a new sum of coefficients where term's coefficient stands (making term a product if it
// is not one) and returns it, holding term's own coefficient: 1 when it has none.
ENode* OpenCoefficientSum(ENode* term) {
  if (!IsCallOf(term, fnTimes)) {
    ENode* sum = NewCall(fnPlus);
    sum->AppendChild(new IntENode(1));
    ENode* product = NewCall(fnTimes);
    product->AppendChild(sum);
    WrapWith(product, term);
    return sum;
  }
  term->flags &= ~FlagSettled;
  if (HasCoefficient(term)) return WrapIn(fnPlus, term->firstChild);
  ENode* sum = NewCall(fnPlus);
  sum->AppendChild(new IntENode(1));
  term->PrependChild(sum);
  return sum;
}

// Moves the coefficient of each term from first up to end into sum (1 for a term without one)
// and frees the terms.
void GatherCoefficients(ENode* first, const ENode* end, ENode* sum) {
  for (ENode* v = first; v != end;) {
    ENode* following = v->next;
    if (HasCoefficient(v)) {
      MoveToEnd(sum, v->firstChild);
      v->DestroyTree();
    } else {
      v->DestroyTree();
      sum->AppendChild(new IntENode(1));
    }
    v = following;
  }
}

// --- PlusRule4

// The coefficient that counts for the gcd: the term itself when its class is in mask, or the
// first factor of a product when that factor's class is; null otherwise.
ENode* CoefficientOf(ENode* term, uint32_t mask) {
  if ((term->GetType() & mask) != 0) return term;
  if (IsCallOf(term, fnTimes) && term->firstChild != nullptr && (term->firstChild->GetType() & mask) != 0)
    return term->firstChild;
  return nullptr;
}

struct IntegerGcd {
  int32_t g;
  ENode* stop;  // the first term without an integer coefficient, or null
  bool unit;    // the gcd reached 1 or -1: nothing to factor
};

IntegerGcd GcdOfIntegerCoefficients(const ENode* sum) {
  int32_t g = 0;
  for (ENode* t : Children(sum)) {
    const ENode* i = CoefficientOf(t, IntType);
    if (i == nullptr) return {g, t, false};
    const int32_t value = static_cast<const IntENode*>(i)->value;
    g = g != 0 ? Gcd(g, value) : value;
    if (g == 1 || g == -1) return {g, t, true};
  }
  return {g, nullptr, false};
}

// Goes on from the integer gcd g over the terms from `from` on, with rationals. False when a
// term has no coefficient or the gcd comes to 1 or -1. A gcd of -1 arises only from a zero or
// undefined coefficient (the gcd of 0 and -1 is -1); taking it out would hand -1 times a sum to
// TimesRule3, which distributes it again, and the two would go round for ever.
bool GcdOfRationalCoefficients(ENode* from, int32_t g, Rational* q) {
  *q = {g, 1};
  for (ENode* t = from; t != nullptr; t = t->next) {
    const ENode* i = CoefficientOf(t, IntType | RationalType);
    if (i == nullptr) return false;
    const Rational v = i->GetRational();
    *q = *q == Rational{0, 1} ? v : RatGcd(*q, v);
    if (*q == Rational{1, 1} || *q == Rational{-1, 1}) return false;
  }
  return true;
}

// Stores the exact value r in the numeric node i: an integer takes i's place, a fraction is
// written into i when i is a rational already.
void StoreNumber(ENode* i, Rational r) {
  if (r.denominator != 1 && i->GetType() == RationalType) {
    auto* rational = static_cast<RationalENode*>(i);
    rational->numerator = r.numerator;
    rational->denominator = r.denominator;
    return;
  }
  ReplaceNode(i, NewNumber(r));
}

// Divides every coefficient by q; one that equals q is removed, or becomes 1 in a term that
// is the number itself. The divisions are exact, since q divides every coefficient.
void DivideCoefficients(ENode* sum, Rational q) {
  for (ENode* t = sum->firstChild; t != nullptr;) {
    ENode* following = t->next;
    ENode* i = CoefficientOf(t, IntType | RationalType);
    RatStatus status = RatExact;
    if (i->GetRational() == q) {
      if (i == t)
        ReplaceNode(t, new IntENode(1));
      else
        i->DestroyTree();
    } else {
      StoreNumber(i, RatDivide(i->GetRational(), q, &status));
    }
    t = following;
  }
}

// The integer counterpart of DivideCoefficients, in place on the coefficients.
void DivideCoefficients(ENode* sum, int32_t g) {
  for (ENode* t = sum->firstChild; t != nullptr;) {
    ENode* following = t->next;
    auto* i = static_cast<IntENode*>(CoefficientOf(t, IntType));
    RatStatus status = RatExact;
    if (i->value != g)
      i->value = IntDivide(i->value, g, &status);
    else if (i == t)
      i->value = 1;
    else
      i->DestroyTree();
    t = following;
  }
}

// --- PlusRule3: one cursor per term walks the term's sorted factors together with the others.

// A bare term is a factor of its own, standing directly in the sum.
bool IsBare(const ENode* cursor, const ENode* sum) { return cursor->parent == sum; }

// The first factor of each term; false when a second bare term shows there is nothing common.
bool OpenCursors(const ENode* sum, std::vector<ENode*>& cursors) {
  bool bareSeen = false;
  for (ENode* t : Children(sum)) {
    const bool bare = !IsCallOf(t, fnTimes);
    if (bare && bareSeen) return false;
    bareSeen = bareSeen || bare;
    cursors.push_back(bare ? t : t->firstChild);
  }
  return true;
}

// Brings each later cursor up to cursor 0; returns the index of the first that does not
// match it, or the count when all do.
size_t ScanForCommon(const ENode* sum, std::vector<ENode*>& cursors) {
  const ENode* first = cursors[0];
  size_t i = 1;
  for (; i < cursors.size(); ++i) {
    ENode*& c = cursors[i];
    if (c != nullptr && IsBare(c, sum)) {
      if (NodeOrder(c, first) < 0) c = nullptr;
    } else {
      while (c != nullptr && NodeOrder(c, first) < 0) c = c->next;
    }
    if (c == nullptr || !NodeEqual(c, first)) break;
  }
  return i;
}

// Moves cursor 0 up to cursor i, which stands beyond it, or ends the walk.
void CatchUpFirst(const ENode* sum, std::vector<ENode*>& cursors, size_t i) {
  ENode*& first = cursors[0];
  const ENode* beyond = cursors[i];
  const ENode* before = first;
  if (beyond == nullptr) {
    first = nullptr;
  } else if (IsBare(first, sum)) {
    if (NodeOrder(first, beyond) < 0) first = nullptr;
  } else {
    while (first != nullptr && NodeOrder(first, beyond) < 0) first = first->next;
  }
  // Only an order that is not antisymmetric (two spellings of one rational) leaves cursor 0
  // where it stood, and the walk would repeat itself for ever.
  if (first == before) first = nullptr;
}

// Moves every cursor past its factor; false when a term has none left.
bool AdvanceAll(const ENode* sum, std::vector<ENode*>& cursors) {
  bool all = true;
  for (ENode*& c : cursors) {
    c = IsBare(c, sum) ? nullptr : c->next;
    all = all && c != nullptr;
  }
  return all;
}

// Takes factor c out of its term: a product of two leaves its other factor in the sum, and a
// bare term or a product's only factor leaves 1.
void DetachFactor(const ENode* sum, ENode* c) {
  ENode* product = c->parent;
  if (product != sum && product->childCount > 1) {
    c->Unlink();
    if (product->childCount == 1) product->Splice();
    return;
  }
  c->SwapPlaces(new IntENode(1));
}

// The factor under the cursors is common to all terms: moves the first copy into result and
// frees the others. False when a term has no factor left.
bool TakeCommonFactor(const ENode* sum, std::vector<ENode*>& cursors, ENode* result) {
  bool all = true;
  for (size_t k = 0; k < cursors.size(); ++k) {
    ENode* c = cursors[k];
    ENode* following = IsBare(c, sum) ? nullptr : c->next;
    DetachFactor(sum, c);
    if (k == 0)
      result->AppendChild(c);
    else
      c->DestroyTree();
    cursors[k] = following;
    all = all && following != nullptr;
  }
  return all;
}

// --- PlusRule5

// Takes the sign off the free term c if it is negative: a negative numeric coefficient is
// negated, a unary minus spliced away. c follows a term that is replaced by its operand.
bool TakeSign(ENode*& c) {
  if (IsCallOf(c, fnTimes) || IsCallOf(c, fnDivide)) {
    ENode* f = c->firstChild;
    if (f != nullptr && IsCallOf(f, fnTimes)) f = f->firstChild;
    if (f == nullptr) return false;
    if (IsNumeric(f) && f->IsNegative()) {
      f->Negate();
      return true;
    }
    if (!IsCallOf(f, fnUnaryMinus)) return false;
    f->Splice();
    return true;
  }
  if (!IsCallOf(c, fnUnaryMinus) || c->childCount != 1) return false;
  c = c->Splice();
  return true;
}

}  // namespace

uint32_t PlusRule::Apply(ENode** node) {
  ENode* sum = *node;
  if (sum->childCount == 0) {
    *node = ReplaceNode(sum, new IntENode(0));
    return 1;
  }
  ENode* first = sum->firstChild;
  if (!IsNumeric(first)) return 0;
  const uint32_t changed = FoldLeadingNumbers(first) ? 1 : 0;
  if (first->next == nullptr) return changed;
  if (RealEqual(first->GetValue(), 0.0)) {
    first->DestroyTree();
    return 1;
  }
  return changed;
}

uint32_t PlusRule2::Apply(ENode** node) {
  uint32_t changed = 0;
  ENode* term = (*node)->firstChild;
  while (term != nullptr) {
    ENode* end = EndOfLikeRun(term);
    if (end != term->next) {
      ENode* run = term->next;
      GatherCoefficients(run, end, OpenCoefficientSum(term));
      changed = 1;
    }
    term = end;
  }
  return changed;
}

uint32_t PlusRule4::Apply(ENode** node) {
  ENode* sum = *node;
  if (sum->childCount < 2) return 0;
  const IntegerGcd integers = GcdOfIntegerCoefficients(sum);
  if (integers.unit) return 0;
  ENode* factor = nullptr;
  if (integers.stop == nullptr) {
    DivideCoefficients(sum, integers.g);
    factor = new IntENode(integers.g);
  } else {
    Rational q;
    if (!GcdOfRationalCoefficients(integers.stop, integers.g, &q)) return 0;
    DivideCoefficients(sum, q);
    factor = NewNumber(q);
  }
  *node = WrapIn(fnTimes, sum);
  (*node)->PrependChild(factor);
  return 1;
}

uint32_t PlusRule3::Apply(ENode** node) {
  ENode* sum = *node;
  std::vector<ENode*> cursors;
  if (sum->childCount == 0 || !OpenCursors(sum, cursors)) return 0;
  ENode* result = nullptr;
  while (cursors[0] != nullptr) {
    const size_t stop = ScanForCommon(sum, cursors);
    if (stop < cursors.size()) {
      CatchUpFirst(sum, cursors, stop);
      continue;
    }
    if (cursors[0]->GetType() == IntType) {
      if (!AdvanceAll(sum, cursors)) break;
      continue;
    }
    if (result == nullptr) result = NewCall(fnTimes);
    if (!TakeCommonFactor(sum, cursors, result)) break;
  }
  if (result == nullptr) return 0;
  *node = WrapWith(result, sum);
  return 1;
}

uint32_t PlusRule5::Apply(ENode** node) {
  ENode* sum = *node;
  if (sum->childCount == 0) return 0;
  ENode* acc = sum->firstChild;
  acc->Unlink();
  uint32_t neg = 0;
  while (ENode* c = sum->firstChild) {
    c->Unlink();
    FunctionDef* op = fnPlus;
    if (TakeSign(c)) {
      op = fnMinus;
      neg = 1;
    }
    if (!IsCallOf(acc, op)) {
      ENode* fresh = NewCall(op);
      fresh->PrependChild(acc);
      acc = fresh;
    }
    acc->AppendChild(c);
  }
  *node = ReplaceNode(sum, acc);
  return neg;
}

}  // namespace quillon
