// The census of symbols: @SymList, the distinct symbol references of chosen classes, and
// @IRange1D and @IRange2D, the range of indices with which chosen symbols are used.
#pragma once

#include "core/rule.h"

namespace quillon {

// @SymList(e) --> @list(distinct symbol references of e)
// @SymList(e, m) --> the same, for the symbols whose class bits meet the integer m
//   with another second argument, or another number of arguments, no change.
// x and x(-1) are two references, and both stay. The list is sorted by NodeOrder, the order of
// sorted trees (by name whatever the class; a series newest first), and not by the class-first
// SymbolListCompare: sorted so, it is a set in the sense of @union and @intersection, and hosts
// combine symbol lists with the set operations without sorting them again.
class SymlistRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @IRange1D(x + x(-3) + x(2), x) --> @list(-3, 2)
//   the smallest and largest first index of the one-index references of the symbols that s
//   names (a symbol, a list of symbols, or anything else for all symbols); exactly two arguments.
// Only the symbol of s counts, not its index: x(-3) as s means all of x. With no reference the
// extremes themselves come back, @list(2147483647, -2147483648), which hosts read as empty.
class IRange1DRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// @IRange2D(m(1, 2) + m(3, 4), m) --> @list(1, 3, 2, 4)
//   the same over the two-index references: the range of the first index, then of the second.
class IRange2DRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
