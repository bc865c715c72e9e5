// Exact arithmetic: value and status of every operation, with the rows where a word runs out,
// wraps around, or meets -2147483648 / -1.
#include "core/exact_numbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

namespace quillon {

void PrintTo(const Rational& r, std::ostream* os) { *os << r.numerator << "/" << r.denominator; }

namespace {

std::string Show(Rational r) { return ::testing::PrintToString(r); }

constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr uint32_t kAllOnes = 0xFFFFFFFF;

TEST(ExactNumbers, PowerLimitIsTheLargestBaseThatFits) {
  for (uint32_t k = 2; k < 32; ++k) {
    auto fits = [k](uint64_t base) {
      uint64_t power = 1;
      for (uint32_t i = 0; i < k && power <= kAllOnes; ++i) power *= base;
      return power <= kAllOnes;
    };
    EXPECT_TRUE(fits(PowerLimit[k])) << "k=" << k;
    EXPECT_FALSE(fits(uint64_t{PowerLimit[k]} + 1)) << "k=" << k;
  }
}

TEST(ExactNumbers, Gcd) {
  static const struct { int32_t a, b, expected; } kRows[] = {
      {0, 0, 1},   {0, -3, -3},  {-3, 0, 3},  {12, 18, 6},       {-12, 18, 6},
      {18, -12, 6}, {7, 13, 1},  {kMin, 0, kMin}, {kMin, kMin, kMin}, {kMin, -1, 1},
      {kMin, 5, -1},  // the magnitude of kMin wraps, and so the remainders turn negative
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Gcd(row.a, row.b), row.expected) << "Gcd(" << row.a << ", " << row.b << ")";
  }
}

TEST(ExactNumbers, IntegerArithmetic) {
  using Operation = int32_t (*)(int32_t, int32_t, RatStatus*);
  static const struct {
    const char* name;
    Operation op;
    int32_t a, b, expected;
    RatStatus status;
  } kRows[] = {
      {"add", IntAdd, 2, 3, 5, RatExact},
      {"add", IntAdd, kMax, 1, kMin, RatOverflow},
      {"add", IntAdd, kMin, -1, kMax, RatOverflow},
      {"add", IntAdd, kMin, kMax, -1, RatExact},
      {"multiply", IntMultiply, 65536, 65536, 0, RatOverflow},
      {"multiply", IntMultiply, 46341, 46341, -2147479015, RatOverflow},
      {"multiply", IntMultiply, -46340, 46340, -2147395600, RatExact},
      {"multiply", IntMultiply, 0, kMin, 0, RatExact},
      {"multiply", IntMultiply, kMin, 0, 0, RatExact},
      {"multiply", IntMultiply, kMin, 1, kMin, RatExact},
      {"multiply", IntMultiply, kMin, -1, kMin, RatOverflow},
      {"multiply", IntMultiply, -1, kMin, kMin, RatOverflow},
      {"divide", IntDivide, 7, 2, 3, RatInexact},
      {"divide", IntDivide, -7, 2, -3, RatInexact},
      {"divide", IntDivide, 6, -3, -2, RatExact},
      {"divide", IntDivide, 5, 0, kMax, RatDomain},
      {"divide", IntDivide, -5, 0, kMin, RatDomain},
      {"divide", IntDivide, 0, 0, 0, RatDomain},
      {"divide", IntDivide, kMin, -1, kMin, RatExact},
      {"power", IntPower, -2, 30, 1073741824, RatExact},
      {"power", IntPower, 0, 0, 1, RatExact},
      {"power", IntPower, 2, 31, kMax, RatOverflow},
      {"power", IntPower, -2, 31, kMin, RatExact},
      {"power", IntPower, -2, 32, kMax, RatOverflow},
      {"power", IntPower, -3, 21, kMin, RatOverflow},
      {"power", IntPower, 5, -1, 0, RatOverflow},
      {"power", IntPower, kMin, 1, kMin, RatExact},
      {"power", IntPower, kMin, 2, kMax, RatOverflow},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.name) + "(" + std::to_string(row.a) + ", " +
                 std::to_string(row.b) + ")");
    RatStatus status = RatDomain;
    EXPECT_EQ(row.op(row.a, row.b, &status), row.expected);
    EXPECT_EQ(status, row.status);
  }
}

TEST(ExactNumbers, UnsignedPowerAndRoot) {
  using Operation = uint32_t (*)(uint32_t, uint32_t, RatStatus*);
  static const struct {
    const char* name;
    Operation op;
    uint32_t a, k, expected;
    RatStatus status;
  } kRows[] = {
      {"power", UIntPower, 2, 31, 0x80000000, RatExact},
      {"power", UIntPower, 2, 32, kAllOnes, RatOverflow},
      {"power", UIntPower, 1, 100, 1, RatExact},
      {"power", UIntPower, 0, 100, 0, RatExact},
      {"power", UIntPower, 12345, 0, 1, RatExact},
      {"power", UIntPower, 65535, 2, 4294836225, RatExact},
      {"power", UIntPower, 65536, 2, kAllOnes, RatOverflow},
      {"power", UIntPower, 1625, 3, 4291015625, RatExact},
      {"power", UIntPower, 1626, 3, kAllOnes, RatOverflow},
      {"power", UIntPower, 255, 4, 4228250625, RatExact},
      {"power", UIntPower, 3, 20, 3486784401, RatExact},
      {"power", UIntPower, 4, 20, kAllOnes, RatOverflow},
      {"root", UIntRoot, 27, 3, 3, RatExact},
      {"root", UIntRoot, 28, 3, 3, RatInexact},
      {"root", UIntRoot, 26, 3, 2, RatInexact},
      {"root", UIntRoot, 0, 5, 0, RatExact},
      {"root", UIntRoot, 1, 40, 1, RatExact},
      {"root", UIntRoot, 2, 40, 1, RatInexact},
      {"root", UIntRoot, kAllOnes, 1, kAllOnes, RatExact},
      {"root", UIntRoot, kAllOnes, 2, 65535, RatInexact},
      {"root", UIntRoot, kAllOnes, 3, 1625, RatInexact},  // 1792 cubed would wrap below
      {"root", UIntRoot, 4294836225, 2, 65535, RatExact},
      {"root", UIntRoot, 0x80000000, 31, 2, RatExact},
      {"root", UIntRoot, 3486784401, 20, 3, RatExact},
      {"root", UIntRoot, 7, 0, 0, RatDomain},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.name) + "(" + std::to_string(row.a) + ", " +
                 std::to_string(row.k) + ")");
    RatStatus status = RatDomain;
    EXPECT_EQ(row.op(row.a, row.k, &status), row.expected);
    EXPECT_EQ(status, row.status);
  }
}

TEST(ExactNumbers, RatMakeAndRatGcd) {
  static const struct { int32_t n, d; Rational expected; } kMakeRows[] = {
      {0, 0, {0, 0}},  {6, -4, {-3, 2}},       {5, 0, {1, 0}},     {-5, 0, {-1, 0}},
      {0, -7, {0, 1}}, {kMin, kMin, {1, 1}},   {1, kMin, {-1, kMin}},
  };
  for (const auto& row : kMakeRows) {
    EXPECT_EQ(RatMake(row.n, row.d), row.expected) << row.n << "/" << row.d;
  }
  EXPECT_EQ(RatGcd({4, 9}, {6, 15}), (Rational{2, 3}));
  EXPECT_EQ(RatGcd({0, 1}, {3, 4}), (Rational{3, 1}));
}

TEST(ExactNumbers, RationalArithmetic) {
  using Operation = Rational (*)(Rational, Rational, RatStatus*);
  static const struct {
    const char* name;
    Operation op;
    Rational a, b, expected;
    RatStatus status;
  } kRows[] = {
      {"add", RatAdd, {1, 2}, {1, 3}, {5, 6}, RatExact},
      {"add", RatAdd, {1, 65536}, {1, 65536}, {1, 0}, RatExact},  // denominators wrap to 0
      {"add", RatAdd, {1, 0}, {-1, 0}, {0, 0}, RatExact},
      {"add", RatAdd, {1, 0}, {1, 0}, {1, 0}, RatExact},
      {"add", RatAdd, {0, 0}, {1, 0}, {0, 0}, RatExact},
      {"add", RatAdd, {1, 0}, {1, 2}, {1, 0}, RatExact},
      {"add", RatAdd, {0, 0}, {1, 2}, {0, 0}, RatExact},
      {"add", RatAdd, {1000000000, 3}, {1000000001, 3}, {666666667, 1}, RatExact},
      {"add", RatAdd, {kMax, 1}, {1, 1}, {0, 0}, RatOverflow},
      {"add", RatAdd, {kMin, 3}, {5, 7}, {0, 0}, RatOverflow},  // Gcd(kMin, 5) is -1
      {"multiply", RatMultiply, {2, 3}, {9, 4}, {3, 2}, RatExact},
      {"multiply", RatMultiply, {65536, 65537}, {65537, 65536}, {1, 1}, RatExact},
      {"multiply", RatMultiply, {65536, 1}, {65536, 1}, {0, 0}, RatOverflow},
      {"multiply", RatMultiply, {kMin, 1}, {3, 5}, {0, 0}, RatOverflow},
      {"multiply", RatMultiply, {-1, 1}, {kMin, 1}, {0, 0}, RatOverflow},
      {"multiply", RatMultiply, {1, -2}, {1, 3}, {-1, 6}, RatExact},
      {"multiply", RatMultiply, {1, 0}, {-2, 1}, {-1, 0}, RatExact},
      {"multiply", RatMultiply, {0, 0}, {5, 1}, {0, 0}, RatExact},
      {"divide", RatDivide, {1, 2}, {3, 4}, {2, 3}, RatExact},
      {"divide", RatDivide, {1, 2}, {-3, 4}, {-2, 3}, RatExact},
      {"divide", RatDivide, {1, 2}, {0, 1}, {1, 0}, RatExact},
      {"divide", RatDivide, {1, 2}, {kMin, 1}, {0, 0}, RatOverflow},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(std::string(row.name) + "(" + Show(row.a) + ", " + Show(row.b) + ")");
    RatStatus status = RatDomain;
    EXPECT_EQ(row.op(row.a, row.b, &status), row.expected);
    EXPECT_EQ(status, row.status);
  }
}

TEST(ExactNumbers, RatReciprocalLeavesStatusUnlessANegationWraps) {
  static const struct { Rational a, expected; RatStatus status; } kRows[] = {
      {{0, 1}, {1, 0}, RatExact},     {{6, 4}, {2, 3}, RatExact},
      {{1, 0}, {0, 1}, RatExact},     {{0, 0}, {0, 0}, RatExact},
      {{-2, 3}, {-3, 2}, RatInexact},  // untouched
      {{-1, 0}, {0, 1}, RatOverflow}, {{kMin, 1}, {1, kMin}, RatOverflow},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(Show(row.a));
    RatStatus status = RatInexact;
    EXPECT_EQ(RatReciprocal(row.a, &status), row.expected);
    EXPECT_EQ(status, row.status);
  }
}

TEST(ExactNumbers, RatRoot) {
  static const struct { Rational a; int32_t k; Rational expected; RatStatus status; } kRows[] = {
      {{4, 9}, 2, {2, 3}, RatExact},     {{-8, 27}, 3, {-2, 3}, RatExact},
      {{-4, 9}, 2, {0, 0}, RatDomain},   {{5, 9}, 2, {2, 3}, RatInexact},
      {{4, 1}, -2, {0, 0}, RatOverflow}, {{4, 1}, 0, {0, 0}, RatDomain},
      {{kMin, 1}, 31, {-2, 1}, RatExact},
      {{0, 0}, 3, {0, 0}, RatExact},     {{5, 0}, 0, {5, 0}, RatExact},
      {{1, 0}, 2, {1, 0}, RatExact},     {{-1, 0}, 3, {-1, 0}, RatExact},
      {{-1, 0}, 2, {0, 0}, RatExact},    {{1, 0}, -2, {0, 1}, RatExact},
      {{-1, 0}, -3, {0, 1}, RatExact},   {{-1, 0}, -2, {0, 0}, RatExact},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(Show(row.a) + " root " + std::to_string(row.k));
    RatStatus status = RatDomain;
    EXPECT_EQ(RatRoot(row.a, row.k, &status), row.expected);
    EXPECT_EQ(status, row.status);
  }
}

TEST(ExactNumbers, RatPower) {
  static const struct { Rational a, e, expected; RatStatus status; } kRows[] = {
      {{0, 1}, {0, 1}, {1, 1}, RatExact},      {{0, 1}, {-1, 1}, {1, 0}, RatExact},
      {{-8, 1}, {1, 3}, {-2, 1}, RatExact},    {{-4, 1}, {1, 2}, {0, 0}, RatDomain},
      {{2, 1}, {40, 1}, {0, 0}, RatOverflow},  {{2, 1}, {31, 1}, {0, 0}, RatOverflow},
      {{-2, 1}, {31, 1}, {kMin, 1}, RatExact}, {{2, 1}, {kMin, 1}, {0, 0}, RatOverflow},
      {{8, 1}, {2, 3}, {4, 1}, RatExact},      {{4, 9}, {1, 2}, {2, 3}, RatExact},
      {{2, 1}, {1, 2}, {1, 1}, RatInexact},    {{2, 3}, {-2, 1}, {9, 4}, RatExact},
      {{4, 9}, {-3, 2}, {27, 8}, RatExact},
      // infinite bases
      {{1, 0}, {1, 2}, {1, 0}, RatExact},      {{-1, 0}, {3, 1}, {-1, 0}, RatExact},
      {{-1, 0}, {2, 1}, {1, 0}, RatExact},     {{1, 0}, {0, 1}, {1, 1}, RatExact},
      {{1, 0}, {-1, 1}, {0, 1}, RatExact},     {{-1, 0}, {1, 2}, {0, 0}, RatExact},
      // infinite and undefined exponents
      {{2, 1}, {0, 0}, {0, 0}, RatExact},      {{-2, 1}, {1, 0}, {0, 0}, RatExact},
      {{2, 1}, {1, 0}, {1, 0}, RatExact},      {{1, 1}, {1, 0}, {1, 1}, RatExact},
      {{1, 2}, {1, 0}, {0, 1}, RatExact},      {{2, 1}, {-1, 0}, {0, 1}, RatExact},
      {{1, 1}, {-1, 0}, {1, 1}, RatExact},     {{1, 2}, {-1, 0}, {1, 0}, RatExact},
      {{1, 0}, {1, 0}, {1, 0}, RatExact},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(Show(row.a) + " ^ " + Show(row.e));
    RatStatus status = RatDomain;
    EXPECT_EQ(RatPower(row.a, row.e, &status), row.expected);
    EXPECT_EQ(status, row.status);
  }
}

}  // namespace
}  // namespace quillon
