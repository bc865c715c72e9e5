// Numeric folding with its fallback to doubles; see numeric_fold.h.
#include "rewrite/numeric_fold.h"

#include "core/bool_node.h"
#include "core/int_node.h"
#include "core/rational_node.h"
#include "core/real_node.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// The value field of a truth value or an integer.
int32_t& IntegerField(ENode* node) {
  return node->GetType() == BoolType ? static_cast<BoolENode*>(node)->value : static_cast<IntENode*>(node)->value;
}

ENode* AsReal(ENode* a) {
  return a->GetType() == RealType ? a : ReplaceNode(a, new RealENode(a->GetValue()));
}

}  // namespace

ENode* NewNumber(Rational value) {
  if (value.denominator == 1) return new IntENode(value.numerator);
  return new RationalENode(value.numerator, value.denominator);
}

ENode* FoldNumber(ENode* a, const ENode* b, FoldOp op) {
  const bool add = op == FoldOp::Add;
  for (;;) {
    if (a->GetType() == RealType || b->GetType() == RealType) {
      a = AsReal(a);
      auto* real = static_cast<RealENode*>(a);
      real->value = add ? real->value + b->GetValue() : real->value * b->GetValue();
      return a;
    }
    RatStatus status = RatExact;
    if (a->GetType() != RationalType && b->GetType() != RationalType) {
      const int32_t other = b->GetType() == BoolType ? static_cast<const BoolENode*>(b)->value
                                                      : static_cast<const IntENode*>(b)->value;
      int32_t& value = IntegerField(a);
      const int32_t result = add ? IntAdd(value, other, &status) : IntMultiply(value, other, &status);
      if (status == RatOverflow) {
        a = AsReal(a);
        continue;
      }
      value = result;
      return a;
    }
    if (a->GetType() != RationalType) {
      const Rational pair = a->GetRational();
      a = ReplaceNode(a, new RationalENode(pair.numerator, pair.denominator));
    }
    auto* rational = static_cast<RationalENode*>(a);
    const Rational left{rational->numerator, rational->denominator};
    const Rational right = b->GetRational();
    const Rational r = add ? RatAdd(left, right, &status) : RatMultiply(left, right, &status);
    if (status != RatExact) {
      a = AsReal(a);
      continue;
    }
    if (r.denominator == 1) return ReplaceNode(a, new IntENode(r.numerator));
    rational->numerator = r.numerator;
    rational->denominator = r.denominator;
    return a;
  }
}

}  // namespace quillon
