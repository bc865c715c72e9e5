// Rules of @pch, @pchy and @pcha: percent changes written out in plain lagged terms under
// ModeTimeExpand. @pc, @pca and @pcy reach them through their patterns (100 times these).
#pragma once

#include "core/rule.h"

namespace quillon {

// @pch(e) --> @times(@plus(e, @times(-1, e(-1))), @pow(e(-1), -1))   in ModeTimeExpand
//   with exactly one argument; @pch(e, s) stays.
class PchRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @pchy(e, s) --> @times(@plus(e, @times(-1, e(-s))), @pow(e(-s), -1))   in ModeTimeExpand
//   when s is an integer literal; @pchy(e) stays.
class PchyRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @pcha(e, s) --> @pow(<the expansion of @pch(e)>, s)   in ModeTimeExpand
//   when s is an integer literal; @pcha(e) stays.
// The one-period rate itself is raised to s, with no 1 added and taken away around the power:
// that is the written-out form of this function, whatever value the host gives it.
class PchaRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
