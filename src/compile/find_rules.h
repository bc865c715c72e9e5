// Search: @find lists where a pattern stands in an expression, or what its wildcards bind there.
#pragma once

#include "core/rule.h"

namespace quillon {

// @find(e, p, FALSE) --> @list(copies of the subexpressions of e that match p)
// @find(e, p, TRUE)  --> @list(for each match: the bound node, or @list(bound nodes) by index)
//   when the third argument is a truth value; else the error
//   "@find() third parameter must be Boolean"
// Subexpressions are tested children first, first to last, and every match is reported, so
// matches may overlap. A repeated wildcard demands equal subtrees, and an equation matches with
// its sides in either order; bindings of a failed first try at an equation are kept, as hosts
// have always seen. A match of a pattern without wildcards reports the matched subexpression
// when bindings are asked for, since it has nothing else to show.
class FindRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
