// The predicates @IsNumeric, @IsConstant, @IsLinear and @IsPolynomial, and the class test under
// @IsNumeric. All are syntactic: they read the tree as it stands and never expand or factor it.
#pragma once

#include <cstdint>

#include "core/enode.h"
#include "core/function_def.h"
#include "core/rule.h"

namespace quillon {

// Whether every node of the subtree of node (borrowed) passes: its class tag lies in mask (with
// include) or outside it (without); and for a function node, its attributes AND attrMask are 0
// when attrWant is 0, or are all of its attributes otherwise.
bool NodeClassTest(const ENode* node, uint32_t mask, bool include, uint32_t attrMask, uint32_t attrWant);

// A tree a number can be computed from at once: numbers, truth values and functions, none of
// them random or dependent on the date.
inline bool IsNumericTree(const ENode* node) {
  return NodeClassTest(node, BoolType | IntType | RationalType | RealType | FunctionType, true,
                       AttrDate | AttrRandom, 0);
}

// @IsNumeric(e) --> TRUE   when e holds only numbers and functions neither random nor dated
// @IsNumeric(e) --> FALSE  otherwise
class IsNumericRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @IsConstant(e, v) --> TRUE   when e does not depend on v (a symbol or a list of them)
// @IsConstant(e, v) --> FALSE  otherwise
// A lag is another variable, a wildcard depends on everything, and a literal v matches no symbol.
class IsConstantRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @IsLinear(e, v) --> TRUE   when each term of e has at most one factor that depends on v, and
//                            that factor is linear in v itself
// @IsLinear(e, v) --> FALSE  otherwise
// Nothing is expanded: a*(b + x)*(c + x) has two dependent factors and is not linear. A power
// is a function like any other, so x^2 and 1/x are not linear.
class IsLinearRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @IsPolynomial(e, v) --> TRUE   when every dependent factor of every term is a polynomial, or a
//                                power of one with a non-negative integer literal exponent
// @IsPolynomial(e, v) --> FALSE  otherwise
class IsPolynomialRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
