// Sign, division and logic rules: the canonical stage removes unary plus and minus, subtraction
// and division, so that later rules see only sums, products and powers; @and and @or fold their
// known arguments. The inverse forms for reading stand with the sum, product and power rules.
#pragma once

#include "core/rule.h"

namespace quillon {

// +x --> x   when there is an argument
// Every argument of a call @UnaryPlus(a, b) takes the node's place in its parent.
class UPlusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// -x --> @times(-1, x)   when there is an argument
// No arithmetic happens in the canonical stage: -2 becomes a product, folded only later.
class UMinusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a - b --> @plus(a, @times(-1, b))   when there are at least two arguments
// Only the first and the last argument are read: a @minus of three children, as the display
// stage writes it, loses its middle terms here, so trees for reading must stay copies.
class MinusRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// a / b --> @times(a, @pow(b, -1))   when there are at least two arguments
// Only the first and the last argument are read, as for MinusRule.
class DivideRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @and() --> TRUE; @and(..., TRUE, ...) --> @and(...); @and(..., c, ...) --> c
//   where c is the first truth value that is not TRUE
// Arguments keep their written order, so x and FALSE gives FALSE though x is unknown. A truth
// value other than 0 and 1, which a sum of truth values leaves, counts as false. Arguments that
// are not truth values, even numbers, stay.
class AndRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @or() --> FALSE; @or(..., FALSE, ...) --> @or(...); @or(..., c, ...) --> c
//   where c is the first truth value that is not FALSE
// The mirror of AndRule: a truth value other than 0 and 1 counts as true.
class OrRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
