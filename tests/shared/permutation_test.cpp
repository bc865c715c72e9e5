// Inversion of permutations in place, cycles of every length.
#include "shared/permutation.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillon {
namespace {

TEST(Permutation, InverseUndoesThePermutation) {
  const std::vector<std::vector<int32_t>> rows = {{}, {0}, {1, 0}, {2, 0, 1, 3}, {4, 3, 0, 1, 2, 6, 5}};
  for (const auto& p : rows) {
    std::vector<int32_t> inverse = p;
    InvertPermutation(inverse.data(), static_cast<int32_t>(inverse.size()));
    for (size_t i = 0; i < p.size(); ++i) EXPECT_EQ(inverse[p[i]], static_cast<int32_t>(i));
  }
}

}  // namespace
}  // namespace quillon
