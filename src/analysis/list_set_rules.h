// The algebra of lists: @sort, @join, and the set operations @union, @intersection and
// @complement. Results of the set operations are sorted by the order of sorted trees and hold
// each element once; two elements are equal when that order finds them so, whatever their
// values, so 1 and 1.0 are two elements. Each sorts and then makes one pass, in place.
#pragma once

#include "core/rule.h"

namespace quillon {

// @sort({b, a}) --> {a, b};  @sort(x) --> x
//   exactly one argument; a function other than a list is given back unsorted.
class SortRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @join({b, a}, c, {d}) --> {b, a, c, d}
//   order and repeats stay; a non-list argument is an element; lists inside the arguments
//   stay lists (one level is flattened).
class JoinRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @union({b, a}, {a, c}) --> {a, b, c};  @union() --> {}
//   the join, sorted, each element once. With one argument: the distinct elements of a list.
class UnionRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @intersection({a, a, b}, {a, b, b}) --> {a, b};  @intersection({a, b}, a) --> {a}
//   the elements that stand in every one of the k arguments; repeats inside one argument count
//   once, and a non-list argument counts as a list of one. @intersection() --> {}.
// A function argument other than a list has its own arguments sorted and made distinct first,
// and then stands as one element.
class IntersectRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @complement({a, b, b, c}, {b}) --> {a, c};  @complement({b, b}) --> {b};  @complement(x, {x}) --> {}
//   the first argument without what stands in the others, sorted and each element once; a
//   non-list first argument counts as a list of one, and the result is always a list.
class ComplementRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
