// ImplicitRule: @implicit(lhs := rhs) moves an equation to one side, as an expression whose
// value is zero where the equation holds.
#pragma once

#include "core/rule.h"

namespace quillon {

// @implicit(l := r) --> @plus(l, @times(-1, r));  @implicit(e) --> e for any other e
//   with exactly one argument; the equation node itself becomes the sum, nothing is copied.
// An equality written = is no equation here and comes through unchanged.
class ImplicitRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
