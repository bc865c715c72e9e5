// Rules of @times: folding of numbers, -1 over a sum, merging of powers of one base, expansion
// of products of sums, and the display forms with quotients and unary minus.
#pragma once

#include "core/rule.h"

namespace quillon {

// 2 * 3 * x --> 6*x; 0 * x --> 0; 1 * x --> x
class TimesRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// -1 * (a + b) --> -1*a + -1*b
class TimesRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// x^a * x^b --> x^(a + b)
class TimesRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (a + b) * (c + d) --> a*c + a*d + b*c + b*d   in ModeExpand
class TimesRule4 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// x * y^-1 --> x / y   in ModeDisplay
class TimesRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// -1 * a --> -a   in ModeDisplay
class TimesRule6 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
