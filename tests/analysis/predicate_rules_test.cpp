// The predicates through the exports: the syntactic walks of @IsNumeric, @IsConstant, @IsLinear
// and @IsPolynomial, and the truth values the host reads from them.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

class Predicates : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    mathsymtable_add(table, "x", 15);  // a series: x(-1) is another variable
  }
};

TEST_F(Predicates, AnswerOnTheShapeAsItStands) {
  const TextRow rows[] = {
      {"@IsNumeric(1 + 2/3)", "TRUE"},
      {"@IsNumeric(TRUE)", "TRUE"},
      {"@IsNumeric(@sin(1))", "TRUE"},
      {"@IsNumeric(x)", "FALSE"},
      {"@IsNumeric(@trend())", "FALSE"},
      {"@IsNumeric(rnd())", "FALSE"},
      {"@IsNumeric(\"a\")", "FALSE"},
      {"@IsConstant(a, x)", "TRUE"},
      {"@IsConstant(x(-1), x)", "TRUE"},
      {"@IsConstant(#1, x)", "FALSE"},
      {"@IsConstant(x, 3)", "TRUE"},
      {"@IsConstant(a*y, {x, y})", "FALSE"},
      {"@IsLinear(x, x)", "TRUE"},
      {"@IsLinear(3, x)", "TRUE"},
      {"@IsLinear(@sin(x), x)", "FALSE"},
      {"@IsLinear(@sin(y), x)", "TRUE"},
      {"@IsLinear(x*x, x)", "FALSE"},
      {"@IsLinear(x^2, x)", "FALSE"},
      {"@IsLinear(1/x, x)", "FALSE"},
      {"@IsLinear(a^2*x, x)", "TRUE"},
      {"@IsLinear(a*(x + 1), x)", "TRUE"},
      {"@IsLinear(a*(b + x)*(c + x), x)", "FALSE"},
      {"@IsLinear(x*y, {x, y})", "FALSE"},
      {"@IsLinear(a*x + b*y + c, {x, y})", "TRUE"},
      {"@IsLinear(x + x(-1)*x(-1), x)", "TRUE"},
      {"@IsPolynomial(x^3 + @sin(a)*x, x)", "TRUE"},
      {"@IsPolynomial((x + 1)^3, x)", "TRUE"},
      {"@IsPolynomial(@sin(x), x)", "FALSE"},
      {"@IsPolynomial(x^y, x)", "FALSE"},
      {"@IsPolynomial(x^-1, x)", "FALSE"},
      {"@IsPolynomial(x^(1/2), x)", "FALSE"},
      {"@IsPolynomial(2^x, x)", "FALSE"},
      {"@IsPolynomial(a*(x + 1)^2*(x^3 + 1), x)", "TRUE"},
      {"@IsPolynomial(@pow(x, 2, 3), x)", "FALSE"},
      {"@IsLinear(x)", "@IsLinear(x)"},
      {"@IsNumeric(1, 2)", "@IsNumeric(1,2)"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(Predicates, ExportsReadTheAnswers) {
  struct Row {
    const char* e;
    const char* v;
    uint32_t constant;
    uint32_t linear;
    uint32_t numeric;
  };
  const Row rows[] = {
      {"a*x + b", "x", 0, 1, 0},
      {"@sin(y)", "x", 1, 1, 0},
      {"x*x", "x", 0, 0, 0},
      {"1 + 2", "x", 1, 1, 1},
      {"x +", "x", 0, 0, 0},  // an error reads as no
  };
  for (const Row& row : rows) {
    mathexpr* e = mathexpr_create(table, row.e);
    mathexpr* v = mathexpr_create(table, row.v);
    EXPECT_EQ(mathexpr_is_constant(e, v), row.constant) << row.e;
    EXPECT_EQ(mathexpr_is_linear(e, v), row.linear) << row.e;
    EXPECT_EQ(mathexpr_is_numeric(e), row.numeric) << row.e;
    mathexpr_destroy(e);
    mathexpr_destroy(v);
  }
}

}  // namespace
}  // namespace quillon::testing
