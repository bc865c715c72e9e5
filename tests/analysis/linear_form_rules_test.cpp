// Linear forms through the exports and the language: coefficients, collection and expansion,
// with the quirks hosts rely on (the first variable factor takes a term, a lone collected term
// reads 0).
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

using LinearForms = ExpressionTest;

TEST_F(LinearForms, CoefficientsCollectionAndExpansion) {
  const TextRow rows[] = {
      {"@LinCoefs(a*x + b*y + c, {x, y})", "{c,a,b}"},
      {"@LinCoefs(a*x + b*x, x)", "{0,a+b}"},
      {"@LinCoefs(x, x)", "{0,1}"},
      {"@LinCoefs(y, x)", "{y,0}"},
      {"@LinCoefs(x^2 + x, x)", "{x^2,1}"},
      {"@LinCoefs(a*(x + 1), x)", "{a,a}"},
      {"@LinCoefs(@sin(y), x)", "{@sin(y),0}"},
      {"@LinCoefs(a*x + b, {})", "{b+a*x}"},
      {"@LinCoefs(x*y, {y, x})", "{0,0,y}"},
      {"@LinCoefs(a*x, {x, y, x})", "{0,a,0,0}"},
      // Expanded to x*x + x*2 + 1*x + 1*2 before any simplification: x*x is a multiple of x.
      {"@LinCoefs((x + 1)*(x + 2), x)", "{2,3+x}"},
      {"@LinCoefs(a*@sin(y) + b, @sin(y))", "{b,a}"},
      {"@LinCoefs(x)", "@LinCoefs(x)"},
      {"@LinCollect(a*x + b*x + c, x)", "c+(a+b)*x"},
      {"@LinCollect(a*x, x)", "0"},
      {"@LinCollect(a*x + 1, x)", "1+a*x"},
      {"@LinCollect(y, x)", "y"},
      {"@LinExpand((a + b)*(x + 1), x)", "a+b+(a+b)*x"},
      {"@LinExpand((a + b)*(c + 1), x)", "(a+b)*(1+c)"},
      {"@LinExpand((x + 1)^2, x)", "(1+x)^2"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(LinearForms, ExportGivesRemainderThenCoefficients) {
  mathexpr* e = mathexpr_create(table, "2*x - 3*y + z/4 + 7");
  mathexpr* v = mathexpr_create(table, "{x, y, z}");
  mathexpr* coefficients = mathexpr_lincoefs(e, v);
  EXPECT_EQ(Structure(coefficients), "@list(7,2,-3,(1/4))");
  EXPECT_EQ(Structure(e), "@plus(@plus(@minus(@times(2,x),@times(3,y)),@divide(z,4)),7)")
      << "the host's expression is not touched";
  mathexpr_destroy(coefficients);
  mathexpr_destroy(e);
  mathexpr_destroy(v);
}

}  // namespace
}  // namespace quillon::testing
