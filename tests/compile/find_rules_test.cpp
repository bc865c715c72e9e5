// Search with @find, from expression text and through mathexpr_find.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

using FindRules = ExpressionTest;

TEST_F(FindRules, ReportsMatchesOrTheirBindingsChildrenFirst) {
  const TextRow rows[] = {
      {"@find(log(x)+log(y), log(#1), TRUE)", "{x,y}"},
      {"@find(log(x)+log(y), log(#1), FALSE)", "{log(x),log(y)}"},
      {"@find(log(x)+exp(y), #1, FALSE)", "{y,exp(y),x,log(x),exp(y)+log(x)}"},
      {"@find(x^2 + y^3, #2^#1, TRUE)", "{{2,x},{3,y}}"},
      {"@find(log(log(x)), log(#1), TRUE)", "{x,log(x)}"},
      {"@find(x^x + x^y, #1^#1, FALSE)", "{x^x}"},
      {"@find(log(x)+log(y), log(x), TRUE)", "{log(x)}"},
      {"@find(x, y, FALSE)", "{}"},
      {"@find(a, b, 1)", "<\"@find() third parameter must be Boolean\">"},
      {"@find(a, b)", "@find(a,b)"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(FindRules, EquationsMatchWithTheirSidesEitherWay) {
  const TextRow rows[] = {
      {"@find(a=b, b=#1, TRUE)", "{a}"},
      {"@find(a=b, #1=b, TRUE)", "{a}"},
      {"@find(a=b, c=#1, TRUE)", "{}"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(FindRules, AWildcardInTheSearchedTreeBoundToItselfEnds) {
  const TextRow rows[] = {{"@find(exp(#1)*log(#1), exp(#1)*log(#1), TRUE)", "{#1}"}};
  ExpectTexts(rows, 3);
}

TEST_F(FindRules, TheExportSearchesCopies) {
  mathexpr* e = mathexpr_create(table, "log(x) + log(y)");
  mathexpr* pattern = mathexpr_create(table, "log(#1)");
  mathexpr* found = mathexpr_find(e, pattern, 1);
  EXPECT_EQ(Structure(found), "@list(x,y)");
  EXPECT_EQ(Structure(e), "@plus(log(x),log(y))");
  mathexpr* broken = mathexpr_create(table, "log(");
  mathexpr* failed = mathexpr_find(e, broken, 0);
  EXPECT_TRUE(mathexpr_is_error(failed)) << "an error argument is the answer";
  for (mathexpr* handle : {failed, broken, found, pattern, e}) mathexpr_destroy(handle);
}

}  // namespace
}  // namespace quillon::testing
