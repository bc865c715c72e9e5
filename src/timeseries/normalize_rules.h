// Rules of @normalize(lhs := rhs, v): operations are peeled off the left side one at a time and
// their inverses carried to the right, until the left side is v. The driver runs the steps, and
// each step unsettles what it changed so that the sides are simplified in between.
#pragma once

#include "core/rule.h"

namespace quillon {

// @normalize(v := r, v) --> v := r;
// @normalize(t + s := r, v) --> @normalize(t := @plus(@times(-1, s), r), v);
// @normalize(t * s := r, v) --> @normalize(t := @times(@pow(s, -1), r), v);
// @normalize(b ^ p := r, v) --> p := @times(log(r), @pow(log(b), -1))   when only p depends on v,
//                               b := @pow(r, @pow(p, -1))             when b depends on v
//   t is the first term or factor that depends on v.
// A power with a base free of v leaves the equation settled, so its right side is not simplified
// on the way: that is the result hosts see.
class NormalizeRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;

 private:
  static uint32_t PeelPower(ENode* equation, const ENode* v);
};

// @normalize(f(a, rest...) := r, v) --> @normalize(a := g(r, rest...), v)
//   when a depends on v and g is the inverse of f in the table of inverses.
// Only the first argument is solved for.
class NormalizeRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @normalize(d(...) := r, v) --> the difference written out; so @pch, @movsum and @movav
// Reports a change whatever the writing out did: a form it cannot write out (an order that is
// not an integer literal, @movsum(x, k), d(x, y)) comes back to this step without end. Callers
// pass only integer literals there.
class NormalizeRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @normalize(l := r, v) --> @normalize(r := l, v)   when r depends on v and l does not
class NormalizeRule4 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @normalize(eq) --> @normalize(eq, v)   in ModeCanonical, before the arguments are simplified
//   v is the first series symbol of eq in pre-order, or else its first symbol of any class.
class NormalizeRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
