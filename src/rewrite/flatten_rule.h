// FlattenRule: @flatten dissolves nested calls of a node's own function into its argument list.
#pragma once

#include "core/rule.h"

namespace quillon {

// @flatten(f(a, f(b, f(c, d)))) --> f(a, b, c, d)
// @flatten(f(a, f(b, f(c, d))), n) --> f(a, b, f(c, d))   for n = 1: n levels of nesting
// A child dissolves when it equals x as a node (same class; for calls the same function and
// derivative notation). With n, each of at most n passes looks only at the children that stood
// there when it began. Any other arguments leave the call alone. The argument takes the node's
// place and the rule returns 0, so the driver goes on with the next rule on the new node.
class FlattenRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
