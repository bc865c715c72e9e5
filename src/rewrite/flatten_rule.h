// FlattenRule: @flatten undoes nesting of one function, or regroups a call's arguments.
#pragma once

#include "core/rule.h"

namespace quillon {

// @flatten(f(f(a, b), c)) --> f(a, b, c)
// @flatten(f(a, b, c, d), k) --> f(f(first k), f(the rest))   when k is an integer
// The argument takes the node's place and the rule returns 0, so the driver goes on with the
// next rule on the new node.
class FlattenRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
