// Rules of @lag: the lag of an expression by an integer, and by a list of integers when time
// expansion is asked for.
#pragma once

#include "core/rule.h"

namespace quillon {

// @lag(e, k) --> e with every series symbol shifted by -k   when k is an integer literal
// @lag(x(2), 3) is x(-1); scalars and whatever stands inside an aggregate keep their index. The
// flags of e stay: a shift does not change the shape of the tree.
class LagRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @lag(e, @list(k1, k2)) --> @list(@lag(e, k1), @lag(e, k2))   in ModeTimeExpand
// Elsewhere a list of lags stays as the second argument.
class LagRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
