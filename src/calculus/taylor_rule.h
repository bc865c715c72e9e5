// Taylor expansion: @taylor writes out the Taylor polynomial of a formula from its successive
// derivatives. The derivatives themselves come from @derivx.
#pragma once

#include "core/rule.h"

namespace quillon {

// @taylor(f, x, x0, n) --> @plus(for k = 0, 1, ...:
//     @divide(@times(@replace_expr(f_k, @eq(x, x0)), @pow(@minus(x, x0), k)), @fact(k)))
//   when n is an integer literal, with f_k the k-th derivative of f by x
// The derivatives are taken at once, by running the driver on @derivx of copies inside the rule.
// The terms stop at the first derivative that simplifies to an exact zero, since all later ones
// are zero too; a derivative that only vanishes at x0 still gives its term. @fact(k) stays a
// call: nothing folds it. Without an integer n, or when @derivx gives no list, the call stays.
class TaylorRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
