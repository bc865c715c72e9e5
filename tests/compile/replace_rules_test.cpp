// Substitution of equation lists (@replace_expr) and replacement of subexpressions
// (@replace_expr_ex), through expression text. y, x and z are series, b a scalar, m a matrix.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

class ReplaceRules : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    for (const char* series : {"x", "y", "z"}) mathsymtable_add(table, series, 15);
    mathsymtable_add(table, "b", 35);
    mathsymtable_add(table, "m", 40);
  }
};

constexpr const char* kCircular = "<\"@replace() equation list has circular dependencies\">";
constexpr const char* kInvalid = "<\"@replace() equation list syntax invalid\">";

TEST_F(ReplaceRules, SubstitutesInListOrderAndSimplifiesAgain) {
  const TextRow rows[] = {
      {"@replace_expr(x+y, @eq(x, 1))", "1+y"},
      {"@replace_expr(a, @list())", "a"},
      {"@replace_expr(x, @list(@eq(x, 1), @eq(x, 2)))", "1"},
      {"@replace_expr(2*x, @list(@eq(x, y+1), @eq(y, 3)))", "8"},
      {"@replace_expr(x * log(x), @eq(x, y+1))", "(1+y)*log(1+y)"},
      {"@replace_expr(x, @list(@eq(x, y+w), @eq(y, v+1), @eq(w, v+2)))", "3+2*v"},
      {"@replace_expr(m(1,2) + m(2,1), @eq(m(1,2), 5))", "5+m(2,1)"},
      {"@replace_expr(x, @eq(x, 1), 3)", "@replace_expr(x,x=1,3)"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(ReplaceRules, FollowsDefinitionsButNotBareSymbols) {
  const TextRow rows[] = {
      {"@replace_expr(x, @list(@eq(x, y), @eq(y, z)))", "y"},
      {"@replace_expr(x, @list(@eq(x, log(y)), @eq(y, z)))", "log(z)"},
      {"@replace_expr(x, @list(@eq(x, y), @eq(y, x)))", "y"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(ReplaceRules, ACycleBecomesAnErrorWhereItCloses) {
  const TextRow rows[] = {
      {"@replace_expr(x, @eq(x, x+1))", kCircular},
      {"@replace_expr(x, @list(@eq(x, y+1), @eq(y, 2*x)))", kCircular},
      {"@replace_expr(x, 3)", kInvalid},
      {"@replace_expr(x, @list(@eq(x, 1), @eq(2, y)))", kInvalid},
  };
  ExpectTexts(rows, 3);
  EXPECT_EQ(EvaluatedText("@replace_expr(log(x) + z, @eq(x, x+1))", 3), kCircular) << "the error rises from its place";
}

TEST_F(ReplaceRules, LagsShiftTheCopiesOfSeriesOnly) {
  const TextRow rows[] = {
      {"@replace_expr(y(-2), @eq(y, x + z(-1)))", "x(-2)+z(-3)"},
      {"@replace_expr(y(-1), @eq(y, x))", "x(-1)"},
      {"@replace_expr(y(-3), @eq(y(-1), x))", "x(-3)"},
      {"@replace_expr(y(-1), @eq(y, b*x))", "b*x(-1)"},
      {"@replace_expr(y(-1), @eq(y, @obs(x) + x))", "x(-1)+@obs(x)"},
      {"@replace_expr(y(1), @list(@eq(y, z(-1) + 1), @eq(z, x)))", "1+x"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(ReplaceRules, ReplacesSubexpressionsChildrenFirst) {
  const TextRow rows[] = {
      {"@replace_expr_ex(a=c, @eq(c=a, w))", "w"},
      {"@replace_expr_ex(log(a)+c, @eq(log(a), w))", "c+w"},
      {"@replace_expr_ex(log(a), @list(@eq(a, c), @eq(log(c), w)))", "w"},
      {"@replace_expr_ex(a, @eq(a, log(a)))", "log(a)"},
      {"@replace_expr_ex(a+c, @list(@eq(a, v), 3, @eq(c, w)))", "v+w"},
      {"@replace_expr_ex(a+c, @eq(v, w))", "a+c"},
      {"@replace_expr_ex(2*a, @eq(a, 3))", "6"},
  };
  ExpectTexts(rows, 3);
}

}  // namespace
}  // namespace quillon::testing
