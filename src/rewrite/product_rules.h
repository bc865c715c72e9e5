// Rules of @times: folding of numbers, -1 over a sum, merging of powers of one base, expansion
// of products of sums, and the display forms with quotients and unary minus.
#pragma once

#include "core/rule.h"

namespace quillon {

// 2 * 3 * x --> 6*x;  0 * x --> 0;  1 * x --> x
// Folds the run of leading numbers into the first; a zero then absorbs every other factor, and a
// one in front of other factors is dropped.
// Zero wins before the other factors are looked at: 0 * @Inf * x is 0 unless @Inf is a literal
// folded in with the zero. A zero of any class (0.0, FALSE) becomes the integer 0.
class TimesRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// -1 * (a + b) --> -1*a + -1*b   when the product is exactly these two factors
// Only -1 is distributed, so that subtraction stays linear; 2 * (a + b) waits for ModeExpand,
// and -1 * (a + b) * c is left as it stands.
class TimesRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// x^a * x^b --> x^(a + b);  x * x --> x^(1 + 1)   for neighbouring factors of equal base
// The base of x^e is x, of anything else the factor itself; the sort has put equal bases side by
// side. The exponent sum is left unsettled for the sum rules, and x * x^-1 becomes x^0 with no
// test on whether x may be 0.
class TimesRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (a + b) * (c + d) --> a*c + a*d + b*c + b*d   in ModeExpand
// Every choice of one term per sum, the last sum varying fastest; factors that are not sums go
// into each product unchanged. A product holding an empty sum, or whose expansion would pass
// kMaxExpansionTerms, is left alone.
class TimesRule4 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// x * y^-1 * z^-2 --> x / (y * z^2);  y^-1 --> 1 / y   in ModeDisplay
// Factors with a negative numeric exponent, or already in the form 1/t, go below the bar.
// A rational coefficient is not split: x/2 reads 1/2*x.
class TimesRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// -1 * a * b --> (-a) * b;  -1 * (a/b) --> (-a)/b;  -1 * a --> -a   in ModeDisplay
// Only the coefficient -1: -2*x keeps its number. A lone -1 is left as it stands.
class TimesRule6 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
