// @implicit and mathexpr_make_implicit: an equation moved to one side, anything else unchanged.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

using ImplicitRule = ExpressionTest;

TEST_F(ImplicitRule, MovesAnEquationToOneSide) {
  static const TextRow rows[] = {
      {"@implicit(y := a*x + b)", "-b-a*x+y"},
      {"@implicit(x := x)", "0"},
      {"@implicit(y := 0)", "y"},
      {"@implicit(x)", "x"},
      {"@implicit(a + b)", "a+b"},
      {"@implicit(y = 1)", "y=1"},
      {"@implicit(x, y)", "@implicit(x,y)"},
      {"@implicit()", "@implicit()"},
  };
  ExpectTexts(rows, 7);
}

TEST_F(ImplicitRule, ExportChangesTheHandleInPlace) {
  struct Row {
    const char* text;
    const char* expected;
  };
  static const Row rows[] = {
      {"y := a*x + b", "@plus(@times(-1,b),@times(-1,a,x),y)"},
      {"x := x", "0"},
      {"a - a + y", "y"},
      {"y = 1", "@eq(y,1)"},
  };
  for (const Row& row : rows) {
    mathexpr* e = mathexpr_create(table, row.text);
    mathexpr* shared = mathexpr_clone(e);
    mathexpr_make_implicit(e);
    EXPECT_EQ(Structure(e), row.expected) << row.text;
    mathexpr_destroy(e);
    mathexpr_destroy(shared);
  }
}

}  // namespace
}  // namespace quillon::testing
