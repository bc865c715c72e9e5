// Replacement: @replace_expr substitutes the definitions of an equation list into an expression,
// and @replace_expr_ex replaces whole subexpressions. Searching and dependency live elsewhere.
#pragma once

#include "core/rule.h"

namespace quillon {

// @replace_expr(e, l = r) --> e with each symbol matching l replaced by r, shifted by its lag
//   when every entry is an equation with a symbol at left; else the error
//   "@replace() equation list syntax invalid"
// The first matching equation wins. A right side that is not a bare symbol is substituted in
// turn, and a symbol met again inside its own expansion becomes the error "@replace() equation
// list has circular dependencies" at that place; a bare-symbol right side is copied but not
// followed, so x = y with y = z leaves y. Hosts rely on both.
class ReplaceRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @replace_expr_ex(e, a = b) --> e with each subexpression equal to a replaced by a copy of b
// Children are replaced before their parent is compared, and a copy is not looked into again.
// A left side that is an equation matches with its two sides in either order. Returns 0 when
// nothing was replaced, though e always takes the node's place.
class ReplaceRuleEx final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
