// Dependency of equations: @eqkeep cuts an equation list down to the equations whose right side
// depends on given symbols, directly or through the other equations.
#pragma once

#include "core/rule.h"

namespace quillon {

// @eqkeep(@list(equations), symbols) --> @list(the equations that depend on one of symbols)
//   when each equation has a symbol without a second index at left and every item of symbols
//   (a list or a single node) is a symbol; else the error "@eqkeep syntax invalid"
// A symbol of a right side depends through the first equation that defines it. Inside a cycle
// a member met again on its own path answers no there, so whether a member is kept can depend
// on the order of the list. A single equation as the first argument is cut by the positions of
// its own children: when it is dropped, its left side goes and an @eq of one child is left.
// Hosts have always seen both, so they stay.
class EqKeepRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
