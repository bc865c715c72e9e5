// Rules of @plus: folding of numbers, like terms, common factors and the display form with
// subtraction. The driver has flattened and sorted the sum before any of them runs.
#pragma once

#include "core/rule.h"

namespace quillon {

// 1 + 2 + x --> 3 + x;  0 + x --> x;  @plus() --> 0
//   when the leading children are numbers; a lone number is kept, even 0.
// An integer overflow turns the running sum into a double and goes on there. A truth value in
// front keeps its class while integers are added to it (its value holds the sum), and turns
// the sum undefined (0/0) against a rational, since a truth value has no rational value.
class PlusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// 2*x + 3*x --> @plus(2, 3)*x;  x + x --> @plus(1, 1)*x
//   when neighbouring terms differ only by a leading numeric factor.
// The coefficients are gathered, not added: PlusRule folds the unsettled inner sum in the next
// pass. A product compared with a later plain term compares that term and all siblings after
// it with its factors, so it matches only at the end of the sum; a sorted sum puts the plain
// term first, where the comparison is exact.
class PlusRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// 2*x + 4*y --> 2*@plus(@times(x), 2*y);  3 + 3*x --> 3*(1 + x)   in ModeFactor
//   when every term has an integer or rational coefficient (or is one) and their gcd is not 1.
// A term whose coefficient equals the factor loses it in place and stays settled, so a
// one-factor @times remains until the tree is evaluated again. A leading -1 ends the rule.
class PlusRule4 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a*x + b*x --> x*(a + b);  x + x*y --> x*(1 + y)   in ModeFactor
//   when all terms share a non-integer factor; at most one term may be a bare factor.
// Common integers are left to PlusRule4, which runs first; common rationals and reals are
// taken like any other factor. A product that keeps more than one factor stays settled.
class PlusRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a + b + -c + -d + e --> @plus(@minus(@plus(a, b), c, d), e)   in ModeDisplay
//   for terms that are -x, or products or quotients with a negative number or -x first.
// The first term keeps its sign, and a bare negative number later on is left alone (only an
// unsorted sum can have one). Returns 0 after the rebuild when no term turned negative, so
// that the new sum is not taken through another pass.
class PlusRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
