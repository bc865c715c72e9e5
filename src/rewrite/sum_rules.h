// Rules of @plus: folding of numbers, like terms, common factors and the display form with
// subtraction. The driver has flattened and sorted the sum before any of them runs.
#pragma once

#include "core/rule.h"

namespace quillon {

// 1 + 2 + x --> 3 + x; 0 + x --> x
class PlusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// 2*x + 3*x --> @plus(2, 3)*x
class PlusRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// 2*x + 4*y --> 2*(x + 2*y)   in ModeFactor
class PlusRule4 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a*x + b*x --> x*(a + b)   in ModeFactor
class PlusRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a + @times(-1, b) --> a - b   in ModeDisplay
class PlusRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
