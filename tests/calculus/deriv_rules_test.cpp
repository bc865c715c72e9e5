// Differentiation through the exports: the shapes of the rules of @deriv on sums, products,
// powers, @recode and leaves, several variables, gradients by list, and what stays unevaluated.
#include <gtest/gtest.h>

#include <string>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

const TextRow kDerivRows[] = {
    // Leaves: equality of any class, then dependence; a lagged symbol is another variable.
    {"@deriv(x, x)", "1"},
    {"@deriv(y, x)", "0"},
    {"@deriv(3, x)", "0"},
    {"@deriv(3, 3)", "1"},
    {"@deriv(x(-1), x)", "0"},
    {"@deriv(x(-1), x(-1))", "1"},
    {"@deriv(x)", "x"},
    {"@deriv(#1, x)", "@deriv(#1,x)"},
    {"@deriv(x, @sin(x))", "@deriv(x,@sin(x))"},
    {"@deriv(@sin(x), @sin(x))", "@cos(x)*@deriv(x,@sin(x))"},
    // Sums keep only their dependent terms.
    {"@deriv(a + x + y, x)", "1"},
    {"@deriv(a + b, x)", "0"},
    {"@deriv(x^2 + 3*x + 5, x)", "3+2*x"},
    // Products: constants out, then the product rule; a constant product is 0.
    {"@deriv(a*b, x)", "0"},
    {"@deriv(a*x, x)", "a"},
    {"@deriv(a*x*y*z, x)", "a*y*z"},
    {"@deriv(x*@cos(x), x)", "@cos(x)-x*@sin(x)"},
    {"@deriv(a*@sin(x)*@cos(x), x)", "a*(@cos(x)^2-@sin(x)^2)"},
    // The four cases of a power.
    {"@deriv(a^b, x)", "0"},
    {"@deriv(x^2, x)", "2*x"},
    {"@deriv(2^x, x)", "2^x*log(2)"},
    {"@deriv(x^x, x)", "x^x*(1+log(x))"},
    {"@deriv(x^-1, x)", "-1/x^2"},
    {"@deriv(@sqrt(x), x)", "(1/2)/@sqrt(x)"},
    {"@deriv(@pow(x, 2, 3), x)", "@pow[1,0,0](x,2,3)"},
    // @recode: both branches, the condition as it stands.
    {"@deriv(@recode(x>0, x^2, x), x)", "@recode(x>0,2*x,1)"},
    {"@deriv(@recode(x>0, a, b), x)", "@recode(x>0,0,0)"},
    // Several variables, left to right.
    {"@deriv(x^3*y^2, x, y)", "6*x^2*y"},
    {"@deriv(x^3, x, x, x)", "6"},
    // Lists: of expressions, of variables, and both.
    {"@deriv(@list(x^2, y), x)", "{2*x,0}"},
    {"@deriv(@list(x*y, y), x, y)", "{1,0}"},
    {"@deriv(@list(), x)", "{}"},
    {"@deriv(a*x + b*y + c, @list())", "{}"},
    {"@deriv(a*x + b*y + c, @list(x, y, z, 3))", "{a,b,0,0}"},
    {"@deriv(x*y, @list(x, y, x*y))", "{y,x,0}"},
    {"@deriv(x^2*y, @list(x, y), @list(x, y))", "{{2*y,2*x},{2*x,0}}"},
    {"@deriv(a*x + x(-1), @list(x, x(-1)))", "{a,1}"},
    // A wildcard depends on every variable, but a gradient's filter knows only symbols.
    {"@deriv(#1 + x, @list(x, y))", "{1+@deriv(#1,x),0}"},
    {"@deriv(#1, @list(x))", "{0}"},
    {"@deriv(#1 + x*y + z, @list(y, x))", "{x+@deriv(#1,y),y+@deriv(#1,x)}"},
    {"@deriv(x*@sin(x) + y + x, @list(x))", "{1+x*@cos(x)+@sin(x)}"},
    // Malformed calls stay.
    {"@deriv()", "@deriv()"},
};

class DerivRules : public ExpressionTest {};

TEST_F(DerivRules, TakeOneLayerAtATime) { ExpectTexts(kDerivRows, 3); }

// The exports build their call on copies of the host's expressions and give new handles.
class DerivExports : public ExpressionTest {
 protected:
  std::string Text(mathexpr* e) {
    char buffer[256];
    mathexpr_as_text(e, buffer, sizeof buffer, nullptr, 0);
    mathexpr_destroy(e);
    return buffer;
  }
};

TEST_F(DerivExports, DifferentiateCopiesOfTheArguments) {
  mathexpr* f = mathexpr_create(table, "x^2*y + @sin(y)");
  mathexpr* x = mathexpr_create(table, "x");
  mathexpr* y = mathexpr_create(table, "y");
  mathexpr* both = mathexpr_create(table, "@list(x, y, 2)");
  EXPECT_EQ(Text(mathexpr_deriv(f, x)), "2*x*y");
  EXPECT_EQ(Text(mathexpr_deriv2(f, x, y)), "2*x");
  EXPECT_EQ(Text(mathexpr_deriv2(f, y, y)), "-@sin(y)");
  EXPECT_EQ(Text(mathexpr_deriv(f, both)), "{2*x*y,x^2+@cos(y),0}");
  EXPECT_EQ(Text(mathexpr_derivx(f, y, 2)), "{x^2*y+@sin(y),x^2+@cos(y),-@sin(y)}");
  EXPECT_EQ(Text(mathexpr_derivx(f, y, 0)), "{x^2*y+@sin(y)}");
  EXPECT_EQ(Text(mathexpr_derivx(f, y, -1)), "{}");
  mathexpr* cube = mathexpr_create(table, "x^3");
  EXPECT_EQ(Text(mathexpr_derivx(cube, x, 3)), "{x^3,3*x^2,6*x,6}");
  // A function node serves as a list of variables: f's terms are no symbols.
  EXPECT_EQ(Text(mathexpr_deriv(f, f)), "0");
  char unchanged[64];
  mathexpr_as_text(f, unchanged, sizeof unchanged, nullptr, 0);
  EXPECT_STREQ(unchanged, "x^2*y+@sin(y)");
  mathexpr* broken = mathexpr_create(table, "x +");
  mathexpr* error = mathexpr_deriv(broken, x);
  EXPECT_TRUE(mathexpr_is_error(error));
  for (mathexpr* e : {f, x, y, both, cube, broken, error}) mathexpr_destroy(e);
}

}  // namespace
}  // namespace quillon::testing
