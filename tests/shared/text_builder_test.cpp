// TextBuilder growth and the positional appends.
#include "shared/text_builder.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(TextBuilder, DoublesUntilTheTextFits) {
  TextBuilder builder(10);
  builder.Append("0123456789x");
  EXPECT_EQ(builder.Capacity(), 20);
  builder.Append(std::string(30, 'y').c_str());
  EXPECT_EQ(builder.Capacity(), 80);
  SharedText text = builder.Take();
  EXPECT_EQ(text.TextLength(), 41);
  EXPECT_EQ(builder.Used(), 0);
}

TEST(TextBuilder, NoticesALineEnd) {
  TextBuilder builder(4);
  builder.Append("a\r");
  EXPECT_FALSE(builder.AtLineEnd());
  builder.Append("\n");
  EXPECT_TRUE(builder.AtLineEnd());
  builder.Append("b");
  EXPECT_FALSE(builder.AtLineEnd());
}

TEST(TextBuilder, PositionalAppendsGrowFromNothingToAHundred) {
  SharedText text = SharedText::WithRoom(0);
  int32_t position = 0;
  AppendByteAt(text, &position, 'a');
  EXPECT_EQ(text.Length(), 101);
  AppendRunAt(text, &position, std::string(150, 'b').c_str(), 150);
  EXPECT_EQ(position, 151);
  EXPECT_EQ(text.Length(), 201);
  EXPECT_EQ(text.At(200), 0) << "the terminator stands at the new end";
}

}  // namespace
}  // namespace quillon
