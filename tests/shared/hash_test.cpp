// Hash helpers: fixed values, so that stored tables stay valid, and the case-blind name hash.
#include "shared/hash.h"

#include <gtest/gtest.h>

#include "shared/shared_text.h"

namespace quillon {
namespace {

TEST(Hash, MixHashIsFixed) {
  // y = x * 0x40F391; y * 0x81E722 - (y / 1021) * 0x30B694D, all mod 2^32.
  EXPECT_EQ(MixHash(0), 0u);
  EXPECT_EQ(MixHash(1), 3416480077u);
  EXPECT_EQ(MixHash(0xFFFFFFFFu), 1338206175u);
  EXPECT_EQ(MixHash(12345), 757851101u);
}

TEST(Hash, NameHashIgnoresCaseOnly) {
  EXPECT_EQ(NameHash("LOG", 0), NameHash("log", 0));
  EXPECT_EQ(NameHash("@Sqrt", 0), NameHash("@sqrt", 0));
  EXPECT_NE(NameHash("log", 0), NameHash("log", 1));
  EXPECT_NE(NameHash("x1", 0), NameHash("x2", 0));
}

TEST(Hash, TextHashCountsTheTerminator) {
  SharedText text("abc");
  EXPECT_EQ(text.Hash(0), TextHash("abc", 4, 0));
  EXPECT_NE(text.Hash(0), TextHash("abc", 3, 0));
  EXPECT_NE(SharedText("ABC").Hash(0), text.Hash(0));
}

}  // namespace
}  // namespace quillon
