// Permutation inverse; see permutation.h.
#include "shared/permutation.h"

namespace quillon {

void InvertPermutation(int32_t* p, int32_t n) {
  for (int32_t start = 0; start < n; ++start) {
    if (p[start] < 0) continue;
    // Follow the cycle, storing each predecessor complemented so that it reads as visited.
    int32_t from = start;
    int32_t to = p[start];
    while (to != start) {
      const int32_t next = p[to];
      p[to] = ~from;
      from = to;
      to = next;
    }
    p[start] = ~from;
  }
  for (int32_t i = 0; i < n; ++i) p[i] = ~p[i];
}

}  // namespace quillon
