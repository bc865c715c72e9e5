// Rules of @pow: exact and floating numeric powers, exponents 0 and 1, nested powers, powers of
// products, multinomial expansion and the display form of a reciprocal.
#pragma once

#include "core/rule.h"

namespace quillon {

// 2^10 --> 1024; x^0 --> 1; x^1 --> x; 0^x --> 0; 1^x --> 1
class PowerRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (x^a)^b --> x^(a*b)
class PowerRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (a*b)^n --> a^n * b^n   when n is an integer
class PowerRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (a + b)^n --> multinomial sum   for n from 2 to 12, in ModeExpand
class PowerRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// x^-1 --> 1/x   in ModeDisplay
class PowerRule6 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
