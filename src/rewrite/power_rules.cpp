// Implementation of the rules declared in power_rules.h.
#include "rewrite/power_rules.h"

#include <cmath>
#include <cstddef>
#include <vector>

#include "core/function_node.h"
#include "core/int_node.h"
#include "core/real_node.h"
#include "core/well_known.h"
#include "rewrite/expansion_size.h"
#include "rewrite/numeric_fold.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

constexpr uint32_t kExactTypes = IntType | RationalType;
constexpr uint32_t kPowerExponentTypes = IntType | RationalType | RealType;

// Puts fresh in w's place, frees w and reports the change.
uint32_t ReplacePower(ENode** node, ENode* fresh) {
  *node = ReplaceNode(*node, fresh);
  return 1;
}

// 0^e is 0 and 1^e is 1 for an exponent that is no number; other bases give null.
ENode* PowerOfZeroOrOne(bool isZero, bool isOne) {
  if (isZero) return new IntENode(0);
  if (isOne) return new IntENode(1);
  return nullptr;
}

// Integer or rational to an integer or rational: exact while the root and the power fit, else
// the double power of the two literals, which is also what an even root of a negative gives.
ENode* ExactPower(const ENode* base, const ENode* exponent) {
  RatStatus status = RatExact;
  const Rational r = RatPower(base->GetRational(), exponent->GetRational(), &status);
  if (status == RatExact) return NewNumber(r);
  return new RealENode(std::pow(base->GetValue(), exponent->GetValue()));
}

// Base an integer or a rational; null when the exponent leaves the power as it is.
ENode* PowerOfExact(const ENode* base, const ENode* exponent) {
  const uint32_t type = exponent->GetType();
  if ((type & kExactTypes) != 0) return ExactPower(base, exponent);
  if (type == RealType) return new RealENode(std::pow(base->GetValue(), exponent->GetValue()));
  const Rational q = base->GetRational();
  return PowerOfZeroOrOne(q == Rational{0, 1}, q == Rational{1, 1});
}

// Base a real; null when the exponent leaves the power as it is.
ENode* PowerOfReal(const ENode* base, const ENode* exponent) {
  const double value = static_cast<const RealENode*>(base)->value;
  if ((exponent->GetType() & kPowerExponentTypes) != 0)
    return new RealENode(std::pow(value, exponent->GetValue()));
  return PowerOfZeroOrOne(RealEqual(value, 0.0), RealEqual(value, 1.0));
}

// Base a symbol or a call: x^0 is 1 and x^1 is x; every other exponent leaves it.
uint32_t PowerOfSymbolic(ENode** node, ENode* base, const ENode* exponent) {
  if (IsIntValue(exponent, 0)) return ReplacePower(node, new IntENode(1));
  if (!IsIntValue(exponent, 1)) return 0;
  base->Unlink();
  return ReplacePower(node, base);
}

// (x^a)^b: the inner exponent a and the outer b become the product a*b, the outer exponent, and
// the inner power is spliced so that its base x is the outer base.
void MergeExponents(ENode* power, ENode* inner) {
  ENode* product = NewCall(fnTimes);
  MoveToEnd(product, inner->lastChild);
  MoveToEnd(product, power->lastChild);
  power->AppendChild(product);
  inner->Splice();
}

// Factorials of 0 to 12; 12! is the last that fits an i32.
const int32_t kFactorial[] = {1, 1, 2, 6, 24, 120, 720, 5040, 40320, 362880, 3628800, 39916800, 479001600};
constexpr int32_t kMaxExpandedPower = 12;

ENode* NewPower(ENode* base, int32_t exponent) {
  ENode* power = NewCall(fnPow);
  power->AppendChild(base);
  power->AppendChild(new IntENode(exponent));
  return power;
}

// A composition of n into the m terms of a sum, stepped through all of them. The parts that are
// not 0 (at most n of them) are kept in ascending order beside the counts, so that each term of
// the expansion is built from them alone: a walk over all m parts for each of the C(n+m-1, n)
// terms made the square of a long sum cubic in its length.
class Composition {
 public:
  Composition(int32_t m, int32_t n) : counts_(static_cast<std::size_t>(m), 0), used_{0} { counts_[0] = n; }

  const std::vector<std::size_t>& Used() const { return used_; }
  int32_t Count(std::size_t i) const { return counts_[i]; }

  // Steps to the next composition: with j the first part in use, all of it but one goes to the
  // first part and one to part j + 1. False after the last one, which has all of n in the last
  // part.
  bool Next() {
    const std::size_t j = used_.front();
    if (j + 1 == counts_.size()) return false;
    const int32_t moved = counts_[j];
    counts_[j] = 0;
    counts_[0] += moved - 1;
    ++counts_[j + 1];
    used_.erase(used_.begin());
    if (used_.empty() || used_.front() != j + 1) used_.insert(used_.begin(), j + 1);
    if (counts_[0] > 0) used_.insert(used_.begin(), 0);
    return true;
  }

 private:
  std::vector<int32_t> counts_;
  std::vector<std::size_t> used_;
};

// The term of the expansion for one composition: the multinomial coefficient (left out when it
// is 1), then each term of the sum that the composition uses, in order, raised to its count.
ENode* ExpansionTerm(const std::vector<const ENode*>& terms, const Composition& parts, int32_t n) {
  int32_t coefficient = kFactorial[n];
  for (const std::size_t i : parts.Used()) coefficient /= kFactorial[parts.Count(i)];
  ENode* product = NewCall(fnTimes);
  if (coefficient != 1) product->AppendChild(new IntENode(coefficient));
  for (const std::size_t i : parts.Used()) {
    const int32_t count = parts.Count(i);
    product->AppendChild(count == 1 ? terms[i]->Clone() : NewPower(terms[i]->Clone(), count));
  }
  return product;
}

// The unsettled sum of all terms of sum^n, in the order of the compositions.
ENode* Multinomial(const ENode* sum, int32_t n) {
  std::vector<const ENode*> terms;
  terms.reserve(static_cast<std::size_t>(sum->childCount));
  for (const ENode* term : Children(sum)) terms.push_back(term);
  Composition parts(sum->childCount, n);
  ENode* expansion = NewCall(fnPlus);
  do {
    expansion->AppendChild(ExpansionTerm(terms, parts, n));
  } while (parts.Next());
  return expansion;
}

}  // namespace

uint32_t PowerRule::Apply(ENode** node) {
  ENode* power = *node;
  if (power->childCount == 0) return ReplacePower(node, new IntENode(1));
  if (power->childCount != 2) return 0;
  ENode* base = power->firstChild;
  const ENode* exponent = power->lastChild;
  const uint32_t type = base->GetType();
  if ((type & (SymbolType | FunctionType)) != 0) return PowerOfSymbolic(node, base, exponent);
  ENode* result = nullptr;
  if ((type & kExactTypes) != 0)
    result = PowerOfExact(base, exponent);
  else if (type == RealType)
    result = PowerOfReal(base, exponent);
  if (result == nullptr) return 0;
  return ReplacePower(node, result);
}

uint32_t PowerRule2::Apply(ENode** node) {
  ENode* power = *node;
  if (power->childCount != 2 || power->firstChild->GetType() != FunctionType) return 0;
  uint32_t changed = 0;
  for (;;) {
    ENode* inner = power->firstChild;
    // A hand-built power without children has no exponent to merge.
    if (!IsCallOf(inner, fnPow) || inner->childCount == 0) return changed;
    changed = 1;
    MergeExponents(power, inner);
    if (power->firstChild->GetType() != FunctionType) return 1;
  }
}

uint32_t PowerRule3::Apply(ENode** node) {
  ENode* power = *node;
  if (power->childCount != 2) return 0;
  if (!IsCallOf(power->firstChild, fnTimes) || power->lastChild->GetType() != IntType) return 0;
  *node = power->firstChild;
  (*node)->DistributeOverList();
  return 1;
}

uint32_t PowerRule5::Apply(ENode** node) {
  ENode* power = *node;
  if (power->childCount != 2) return 0;
  const ENode* sum = power->firstChild;
  // An empty sum has no terms to expand.
  if (!IsCallOf(sum, fnPlus) || sum->childCount == 0 || power->lastChild->GetType() != IntType) return 0;
  const int32_t n = static_cast<const IntENode*>(power->lastChild)->value;
  if (n < 2 || n > kMaxExpandedPower) return 0;
  if (PowerExpansionTerms(sum->childCount, n) > kMaxExpansionTerms) return 0;
  return ReplacePower(node, Multinomial(sum, n));
}

uint32_t PowerRule6::Apply(ENode** node) {
  ENode* power = *node;
  if (power->childCount != 2 || !IsIntValue(power->lastChild, -1)) return 0;
  ENode* quotient = NewCall(fnDivide);
  quotient->AppendChild(new IntENode(1));
  MoveToEnd(quotient, power->firstChild);
  return ReplacePower(node, quotient);
}

}  // namespace quillon
