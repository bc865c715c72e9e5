// Number and text conversions with their flags.
#include "shared/conversions.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

namespace quillon {
namespace {

TEST(Conversions, TextToIntegerRows) {
  struct Row {
    const char* text;
    uint32_t flags;
    int32_t consumed;
    int32_t value;
  };
  const Row rows[] = {
      {"42", 0, 2, 42},
      {"  -17x", 0, 5, -17},
      {"+0007", 0, 5, 7},
      {"1,234", 0, 1, 1},
      {"1,234", NumThousands, 5, 1234},
      {"12,345,678", NumThousands, 10, 12345678},
      {"1,23", NumThousands, 0, 0},
      {"1234,567", NumThousands, 0, 0},
      {"(12)", NumParenthesisMinus, 4, -12},
      {"(12)", 0, 0, 0},
      {"$5", NumDollar, 2, 5},
      {"- $5", NumDollar, 4, -5},
      {"3000000000", 0, 10, INT_MAX},
      {"-2147483648", 0, 11, INT_MIN},
      {"-99999999999", 0, 12, INT_MIN},
      {"abc", 0, 0, 0},
  };
  for (const Row& row : rows) {
    int32_t value = 0;
    const int32_t consumed = TextToInteger(&value, row.text, static_cast<int32_t>(std::strlen(row.text)), 10, row.flags);
    EXPECT_EQ(consumed, row.consumed) << row.text;
    if (consumed > 0) {
      EXPECT_EQ(value, row.value) << row.text;
    }
  }
  int32_t hex = 0;
  EXPECT_EQ(TextToInteger(&hex, "fF", 2, 16, 0), 2);
  EXPECT_EQ(hex, 255);
}

TEST(Conversions, TextToDoubleAcceptsFortranExponents) {
  struct Row {
    const char* text;
    uint32_t flags;
    int32_t consumed;
    double value;
  };
  const Row rows[] = {
      {"1.5", 0, 3, 1.5},    {" -2.5e3", 0, 7, -2500.0}, {"1d2", 0, 3, 100.0}, {"1D-2", 0, 4, 0.01},
      {"3e", 0, 1, 3.0},     {"2,5", NumDecimalComma, 3, 2.5}, {".5", 0, 2, 0.5}, {"x", 0, 0, 0.0},
  };
  for (const Row& row : rows) {
    double value = 0;
    const int32_t consumed =
        TextToDouble(&value, row.text, static_cast<int32_t>(std::strlen(row.text)), 'g', row.flags, -1);
    EXPECT_EQ(consumed, row.consumed) << row.text;
    if (consumed > 0) {
      EXPECT_DOUBLE_EQ(value, row.value) << row.text;
    }
  }
}

TEST(Conversions, NumbersToText) {
  EXPECT_STREQ(IntegerToText(-2147483647 - 1, 0).c_str(), "-2147483648");
  EXPECT_STREQ(IntegerToText(42, 5).c_str(), "   42");
  EXPECT_STREQ(DoubleToText(0.1, 17).c_str(), "0.10000000000000001");
  EXPECT_STREQ(DoubleToText(1e300, 17).c_str(), "1.0000000000000001e+300");
  EXPECT_STREQ(DoubleToText(2.0, 17).c_str(), "2");
}

}  // namespace
}  // namespace quillon
