// Derivatives of functions other than sums, products, powers and @recode: the chain rule, which
// records partial derivatives in the derivative notation f[1,0](x, y), the test for notation
// that no pattern resolved, and the list of successive derivatives.
#pragma once

#include "core/rule.h"

namespace quillon {

// @deriv(f(u, v), x) --> f[1,0](u, v)*@deriv(u, x) + f[0,1](u, v)*@deriv(v, x)
// @deriv(f(k), x) --> 0   when no argument depends on x, or f has no arguments
// Only the arguments that depend on x give a term. The first uses f itself, the others copies
// of f taken before its own order is raised. A pattern on f of the same orders, such as
// @sin[1](#1), then gives the closed form; without one the notation is the answer.
class DerivRule6 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @HasUnknownDerivs(e) --> TRUE   when a function node of e has derivative notation
// A @deriv left unevaluated does not count: only notation that no pattern resolved.
class HasUnknownDerivsRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @derivx(e, x, 2) --> @list(e, @deriv(e, x), @deriv(e, x, x))
// @derivx(e, x, -1) --> @list()   and no change unless n is an integer literal
// Each element starts from e again rather than from the element before it, so each is
// simplified on its own.
class DerivxRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
