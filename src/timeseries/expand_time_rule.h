// ExpandTimeRule: @expandtime marks a whole expression, or the parts of it that touch given
// symbols, for ModeTimeExpand, so that its lags and differences are written out in any pass.
#pragma once

#include "core/rule.h"

namespace quillon {

// @expandtime(e) --> e, every node marked for ModeTimeExpand and unsettled
// @expandtime(e, s) --> e, with the symbols s (a symbol, or a @list of them) and every function
//   node above them marked and unsettled; a series matches at any lag.
// A second argument that is neither a symbol nor a list names nothing, and nothing is marked.
// The marks stay on the nodes: they count along with the mode of any later pass.
class ExpandTimeRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
