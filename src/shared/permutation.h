// Inversion of a permutation in place.
#pragma once

#include <cstdint>

namespace quillon {

// p holds a permutation of 0..n-1; afterwards p[p_old[i]] == i. Visited cells are marked by
// bit complement while the cycles are followed, so no extra memory is needed.
void InvertPermutation(int32_t* p, int32_t n);

}  // namespace quillon
