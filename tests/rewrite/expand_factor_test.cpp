// Expansion and factoring together (wrappers inside wrappers, mode words with both bits), and the
// bound on the number of terms an expansion may make.
#include <gtest/gtest.h>

#include <string>

#include "rewrite/expansion_size.h"
#include "support/expression_test.h"

namespace quillon::testing {
namespace {

constexpr uint32_t kSimplify = 3;
constexpr uint32_t kExpand = 0x20003;
constexpr uint32_t kFactor = 0x40003;
constexpr uint32_t kBoth = 0x60003;

using ExpandAndFactor = ExpressionTest;

// Each row used to spin for ever, or is a result that ended before and must stay.
TEST_F(ExpandAndFactor, TheNearestWrapperDecidesAndBothBitsExpandFirst) {
  const struct {
    const char* text;
    uint32_t mode;
    const char* expected;
  } rows[] = {
      {"@factor(@expand((a+b)*c))", kSimplify, "(a+b)*c"},  // spun for ever
      {"@expand(2*(z-1))", kFactor, "2*(-1+z)"},             // spun for ever
      {"@expand(@factor(2*x+4*y))", kSimplify, "2*x+4*y"},
      {"@factor(@expand(@factor(a*x+a*y)*2))", kSimplify, "2*a*(x+y)"},
      {"2*(z-1)", kBoth, "2*(-1+z)"},
      {"@factor(a*x+a*y)*(b+c)", kBoth, "a*(b*x+c*x+b*y+c*y)"},
      // Results that ended before.
      {"@factor(@expand((a+b)^2))", kSimplify, "a^2+2*a*b+b^2"},
      {"@expand(@expand((a+b)*c))", kSimplify, "a*c+b*c"},
      {"2*@expand((a+b)*c)", kSimplify, "2*(a*c+b*c)"},
      {"@factor(2*x+4*y)", kSimplify, "2*(x+2*y)"},
      {"@factor(a*x+a*y)*(b+c)", kExpand, "a*b*x+a*c*x+a*b*y+a*c*y"},
  };
  for (const auto& row : rows) EXPECT_EQ(EvaluatedText(row.text, row.mode), row.expected) << row.text << " in mode " << row.mode;
}

std::string SumOf(const char* name, int terms) {
  std::string text = "(";
  for (int i = 1; i <= terms; ++i) text += (i > 1 ? "+" : "") + std::string(name) + std::to_string(i);
  return text + ")";
}

// 15 bytes that allocated 6 GB; sums just past the limit stay, small ones still expand.
TEST_F(ExpandAndFactor, ExpansionsPastTheLimitStayAsTheyAre) {
  const std::string inner = Evaluated("(x0+x1)^12", kExpand);
  EXPECT_EQ(Evaluated("((x0+x1)^12)^12", kExpand), "@pow(" + inner + ",12)");
  const std::string square = SumOf("x", 1414) + "^2";  // 1,000,405 terms
  EXPECT_EQ(Evaluated(square.c_str(), kExpand).rfind("@pow(@plus(", 0), 0u);
  const std::string product = SumOf("x", 1001) + "*" + SumOf("y", 1000);  // 1,001,000 terms
  EXPECT_EQ(Evaluated(product.c_str(), kExpand).rfind("@times(@plus(", 0), 0u);
  EXPECT_EQ(EvaluatedText("(a+b)^2*(u+v)", kExpand), "a^2*u+2*a*b*u+b^2*u+a^2*v+2*a*b*v+b^2*v");
}

TEST(ExpansionSize, CountsTermsAndSaturatesPastTheLimit) {
  const struct {
    int32_t m, n;
    int64_t terms;
  } rows[] = {
      {2, 2, 3},      {3, 2, 6},          {2, 12, 13},     {10, 12, 293930},
      {1413, 2, 998991}, {1414, 2, kMaxExpansionTerms + 1}, {13, 12, kMaxExpansionTerms + 1},
      {2147483647, 12, kMaxExpansionTerms + 1},
  };
  for (const auto& row : rows) EXPECT_EQ(PowerExpansionTerms(row.m, row.n), row.terms) << row.m << " terms ^" << row.n;
}

}  // namespace
}  // namespace quillon::testing
