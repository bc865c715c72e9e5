// Rules of @movsum and @movav: a trailing window written out in plain lagged terms under
// ModeTimeExpand. The other moving functions of the catalogue have no rule and stay as written.
#pragma once

#include "core/rule.h"

namespace quillon {

// @movsum(e, n) --> @plus(e, @times(1, e(-1)), ..., @times(1, e(-(n-1))))   in ModeTimeExpand
//   when n is an integer literal not below 1.
// The factors 1 are left for the product rules; a window of n terms makes n - 1 copies of e.
class MovsumRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @movav(e, n) --> @times(<the window sum of @movsum(e, n)>, @pow(n, -1))   in ModeTimeExpand
//   when n is an integer literal not below 1.
class MovavRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
