// Rules of @pow: exact and floating numeric powers, exponents 0 and 1, nested powers, powers of
// products, multinomial expansion and the display form of a reciprocal.
#pragma once

#include "core/rule.h"

namespace quillon {

// 2^10 --> 1024; 2^-2 --> 1/4; 2^(1/2) --> 1.4142135623730951; 2^1.5 --> real
// x^0 --> 1; x^1 --> x; 0^x --> 0; 1^x --> 1; @pow() --> 1
//   when the base is an integer or rational (exact while the root and power fit 32 bits, else the
//   double power of base and exponent), a real (always the double power), or a symbol or call
//   with the integer exponent 0 or 1.
// x^0 is 1 without asking what x is, 0^-1 is the rational infinity 1/0 and (-4)^(1/2) a real
// not-a-number: undefined results are values here, never errors. x^1.0 stays, since only an
// integer exponent is looked at for a symbolic base, and a truth value as base is left alone.
class PowerRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (x^a)^b --> x^(a*b)   when the base is a power; ((x^a)^b)^c is flattened in one run
// No sign is tested: (x^2)^(1/2) becomes x, not the absolute value. The product keeps the inner
// exponent first and is left for the driver to sort and fold.
class PowerRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (a*b)^n --> a^n * b^n   when n is an integer literal
// A negative n distributes too, so a quotient's reciprocal splits into factors; (a*b)^(1/2) and
// (a*b)^c stay.
class PowerRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// (a + b + ...)^n --> the multinomial sum   when n is an integer from 2 to 12, in ModeExpand
// 12! is the largest factorial of a 32-bit word. A power whose C(n+m-1, m-1) terms would pass
// kMaxExpansionTerms stays as it is. Terms come out in the order of the compositions (a^2, 2ab, b^2 for two terms); the sum
// is left unsettled for the driver to sort and collect.
class PowerRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// x^-1 --> 1/x   in ModeDisplay
// Only the exponent -1: x^-2 standing alone stays a power; as a factor the product's display
// rules turn it into a quotient.
class PowerRule6 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
