// Sign, division and logic rules: the canonical stage removes unary plus and minus, subtraction
// and division; @and and @or fold their known arguments.
#pragma once

#include "core/rule.h"

namespace quillon {

// +x --> x
class UPlusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// -x --> @times(-1, x)
class UMinusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a - b --> @plus(a, @times(-1, b))
class MinusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a / b --> @times(a, @pow(b, -1))
class DivideRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @and(..., TRUE, ...) --> @and(...); @and(..., FALSE, ...) --> FALSE
class AndRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @or(..., FALSE, ...) --> @or(...); @or(..., TRUE, ...) --> TRUE
class OrRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
