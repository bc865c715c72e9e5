// Rules of @deriv for sums, products, powers, @recode, leaves, several variables and lists.
// Every other function goes through the chain rule (function_deriv_rules.h). Each rule takes
// one layer off and leaves @deriv nodes on the pieces, which the driver reaches in turn.
#pragma once

#include "core/function_def.h"
#include "core/rule.h"

namespace quillon {

// @deriv(x, x) --> 1;  @deriv(e, x) --> 0   when e does not depend on x
// Equality is asked first and of any class, so @deriv(3, 3) is 1. A leaf that depends on x
// without being x (a wildcard, a symbol standing in a list x) stays unevaluated.
class DerivRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @deriv(a + b + c, x) --> @deriv(a, x) + @deriv(c, x)   when b does not depend on x
// Constant terms are dropped before distributing, so a long sum costs only its dependent terms.
class DerivRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @deriv(a*u*v, x) --> a * (@deriv(u, x)*v + u*@deriv(v, x))   when only u and v depend on x
// Constant factors go out first; no factor left gives 0, one factor left no product rule. A
// product of n dependent factors costs n - 1 clones: the last term reuses the product and the
// @deriv node itself.
class DerivRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;

 private:
  static ENode* ApplyProductRule(ENode* call);
};

// @deriv(b^p, x) --> 0;  b^p*log(b)*@deriv(p, x);  b^(-1 + p)*p*@deriv(b, x);
//   (p*b^-1*@deriv(b, x) + @deriv(p, x)*log(b)) * b^p
//   as neither, only p, only b, or both depend on x.
// The exponent -1 + p is built, not computed: the sum rules fold it afterwards.
class DerivRule4 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @deriv(e, x1, ..., xn) --> @deriv(@deriv(e, x1, ..., x(n-1)), xn)
// x1 is the innermost; the inner call is split again when the driver reaches it.
class DerivRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @deriv(@list(u, v), x...) --> @list(@deriv(u, x...), @deriv(v, x...))
// @deriv(e, @list(x, y, 3)) --> @list(@deriv(e|x, x), @deriv(e|y, y), 0)
//   where e|x is, for a sum e, the sum of the terms that depend on x, and e itself otherwise.
// An element that is not a symbol, or that the symbol filter proves absent, gives 0 whatever e
// holds (a wildcard in e included). The terms of a sum are indexed by symbol once, so that a
// gradient by thousands of variables costs what the terms mentioning each one cost.
class DerivRule7 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;

 private:
  static ENode* Gradient(ENode* call);
};

// @deriv(@recode(c, a, b), x) --> @recode(c, @deriv(a, x), @deriv(b, x))
// The condition is neither differentiated nor looked at: at the point where it switches, the
// derivative of a branch is taken as it stands.
class DerivRule8 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// Shared with the chain rule and @derivx.
// A new unsettled @deriv(e, Clone(x)): takes e (free), borrows x.
ENode* NewDeriv(ENode* e, const ENode* x);
// Whether call has two arguments and the first is a call of def.
bool IsDerivOfCall(const ENode* call, const FunctionDef* def);

}  // namespace quillon
