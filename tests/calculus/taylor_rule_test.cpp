// Taylor polynomials through expression text and mathexpr_taylor: where the terms stop, and the
// terms as they are written (quotients by @fact(k), powers of differences, left unfolded).
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

using TaylorRule = ExpressionTest;

TEST_F(TaylorRule, StopsAtTheFirstExactlyZeroDerivative) {
  const TextRow rows[] = {
      {"@taylor(x^2, x, 1, 5)", "1/@fact(0)+2*(x-1)/@fact(1)+2*(x-1)^2/@fact(2)"},
      {"@taylor(5, x, 0, 3)", "5/@fact(0)"},
      {"@taylor(0, x, 0, 3)", "0"},
      {"@taylor(x^2, x, 1, -1)", "0"},
      {"@taylor(exp(x), x, 0, 0)", "1/@fact(0)"},
      {"@taylor(exp(x), x, 0, 2)", "1/@fact(0)+(x-0)/@fact(1)+(x-0)^2/@fact(2)"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(TaylorRule, ADerivativeThatVanishesOnlyAtThePointKeepsItsTerm) {
  const TextRow rows[] = {
      {"@taylor(x^3, x, 0, 5)", "0/@fact(0)+0/@fact(1)+0/@fact(2)+6*(x-0)^3/@fact(3)"},
      {"@taylor(x^2, x, a, 3)", "a^2/@fact(0)+2*a*(x-a)/@fact(1)+2*(x-a)^2/@fact(2)"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(TaylorRule, UnknownDerivativesKeepTheirNotationAtThePoint) {
  const TextRow rows[] = {{"@taylor(@erf(x), x, 0, 1)", "@erf(0)/@fact(0)+@erf[1](0)*(x-0)/@fact(1)"}};
  ExpectTexts(rows, 3);
}

TEST_F(TaylorRule, StaysWithoutAnIntegerOrderOrWithOtherArgumentCounts) {
  const TextRow rows[] = {
      {"@taylor(x, x, 0, y)", "@taylor(x,x,0,y)"},
      {"@taylor(x, x, 0, 1.5)", "@taylor(x,x,0,1.5)"},
      {"@taylor(x^2, x, 1)", "@taylor(x^2,x,1)"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(TaylorRule, TheExportExpandsCopies) {
  mathexpr* f = mathexpr_create(table, "x^2");
  mathexpr* x = mathexpr_create(table, "x");
  mathexpr* x0 = mathexpr_create(table, "1");
  mathexpr* polynomial = mathexpr_taylor(f, x, x0, 5);
  char text[128];
  mathexpr_as_text(polynomial, text, sizeof text, nullptr, 0);
  EXPECT_STREQ(text, "1/@fact(0)+2*(x-1)/@fact(1)+2*(x-1)^2/@fact(2)");
  EXPECT_EQ(Structure(f), "@pow(x,2)");
  for (mathexpr* handle : {polynomial, x0, x, f}) mathexpr_destroy(handle);
}

}  // namespace
}  // namespace quillon::testing
