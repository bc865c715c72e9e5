// The linear forms @LinExpand, @LinCoefs and @LinCollect: an expression taken apart, or put
// together again, by the terms that are plain multiples of chosen variables. Whether a form is
// linear at all is the business of @IsLinear (predicate_rules.h).
#pragma once

#include "core/rule.h"

namespace quillon {

// @LinExpand((a + b)*(x + 1), x) --> (a + b)*x + (a + b)*1
//   multiplies out, on the top level only, the sums that depend on v; other sums go along whole.
// A tree that did not change keeps its settled flag, so it is not looked at again.
class LinExpandRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @LinCoefs(a*x + b*y + c, @list(x, y)) --> @list(c, a, b)
//   the remainder first, then the coefficient of each variable in the order of the list (0
//   where it has none).
// The first factor of a term that is a variable takes the term, whatever the list's order: the
// other variables stay in its coefficient. A power of a variable is no variable, and its term
// stays in the remainder.
class LinCoefsRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @LinCollect(a*x + b*x + c, x) --> c + (a + b)*x
//   the terms of each variable gathered under one product, appended to what is left.
// When the whole expression was one term of a variable, what is left is the literal 0 that took
// its place, and the products hang under that literal where neither text nor value sees them:
// @LinCollect(a*x, x) reads 0, and hosts depend on that reading.
class LinCollectRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
