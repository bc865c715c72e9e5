// How many terms an expansion would have, counted before it is made: a power or product of sums
// is left as it stands when its expansion would pass kMaxExpansionTerms.
#pragma once

#include <cstdint>

#include "core/enode.h"

namespace quillon {

// A few bytes of text can ask for gigabytes: ((x0+x1)^12)^12 would expand into 2,704,156 terms.
inline constexpr int64_t kMaxExpansionTerms = 1000000;

// Terms of (t1+...+tm)^n: the compositions of n into m parts, C(n+m-1, n). Counts beyond the
// limit come back as kMaxExpansionTerms + 1.
int64_t PowerExpansionTerms(int32_t m, int32_t n);
// Terms of the product p multiplied out: the product of the sizes of its sums, capped the same way.
int64_t ProductExpansionTerms(const ENode* p);

}  // namespace quillon
