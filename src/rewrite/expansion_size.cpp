// Term counts of expansions, saturating just past the limit so that no count overflows.
#include "rewrite/expansion_size.h"

#include "core/function_node.h"
#include "core/well_known.h"

namespace quillon {

// C(m-1+i, i) for i = 1..n, each step exact (a product of i consecutive integers over i!); the
// counts grow with i, so the first one past the limit decides.
int64_t PowerExpansionTerms(int32_t m, int32_t n) {
  int64_t count = 1;
  for (int64_t i = 1; i <= n; ++i) {
    count = count * (m - 1 + i) / i;
    if (count > kMaxExpansionTerms) return kMaxExpansionTerms + 1;
  }
  return count;
}

int64_t ProductExpansionTerms(const ENode* p) {
  int64_t count = 1;
  for (const ENode* c : Children(p)) {
    if (!IsCallOf(c, fnPlus)) continue;
    count *= c->childCount;
    if (count > kMaxExpansionTerms) return kMaxExpansionTerms + 1;
  }
  return count;
}

}  // namespace quillon
