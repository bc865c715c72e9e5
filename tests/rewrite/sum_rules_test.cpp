// The rules of sums through the exports: folding of numbers, like terms, common factors in the
// factoring mode, and the display form with subtraction.
#include <gtest/gtest.h>

#include <span>

#include "core/rule.h"
#include "support/expression_test.h"

namespace quillon::testing {
namespace {

constexpr uint32_t kSimplify = ModeCanonical | ModeSimplify;
constexpr uint32_t kFactor = kSimplify | ModeFactor;

// Modes show in hex here, where the factoring bit lives.
class SumRules : public ExpressionTest {
 protected:
  void Check(std::span<const StructureRow> rows) {
    for (const StructureRow& row : rows) {
      const EvaluatedRoot got = EvaluateRoot(row.text, row.mode);
      EXPECT_EQ(got.structure, row.expected) << row.text << " in mode " << std::hex << row.mode;
      EXPECT_TRUE(got.linksConsistent) << row.text;
      if (row.type != 0) {
        EXPECT_EQ(got.type, row.type) << row.text;
      }
    }
  }
};

TEST_F(SumRules, PlusRuleFoldsLeadingNumbersWithFallbackToDoubles) {
  static const StructureRow rows[] = {
      {"1 + 2 + x", kSimplify, "@plus(3,x)"},
      {"1 + x + 2", kSimplify, "@plus(3,x)"},
      {"1 + 2", kSimplify, "3", IntType},
      {"1/2 + 1/2", kSimplify, "1", IntType},
      {"1/2 + 1/3", kSimplify, "(5/6)", RationalType},
      {"0 + x", kSimplify, "x"},
      {"0.0 + x", kSimplify, "x"},
      {"0.5 + x - 0.5", kSimplify, "x"},
      {"0 + 0", kSimplify, "0", IntType},
      {"x + y", kSimplify, "@plus(x,y)"},
      {"@plus()", kSimplify, "0", IntType},
      {"2147483647 + 1", kSimplify, "2147483648", RealType},
      {"-2147483647 - 1 - 1", kSimplify, "-2147483649", RealType},
      {"2147483647 + 1 + 1/2", kSimplify, "2147483648.5", RealType},
      {"1/2 + 1/2147483647", kSimplify, "0.50000000046566129", RealType},
      {"0.5 + 1/2", kSimplify, "1", RealType},
      // A truth value first keeps its class against integers, is 0/0 against a rational,
      // and 1.0 or 0.0 against a real; a false one in front of a term goes like a 0.
      {"TRUE + 2", kSimplify, "TRUE", BoolType},
      {"TRUE + 1/2", kSimplify, "NA", RationalType},
      {"TRUE + 0.5", kSimplify, "1.5", RealType},
      {"FALSE + x", kSimplify, "x"},
  };
  Check(rows);
}

TEST_F(SumRules, PlusRule2MergesNeighbouringLikeTerms) {
  static const StructureRow rows[] = {
      {"x + y + x", kSimplify, "@plus(@times(2,x),y)"},
      {"x + x + x", kSimplify, "@times(3,x)"},
      {"2*x + 3*x", kSimplify, "@times(5,x)"},
      {"x*y + 2*x*y", kSimplify, "@times(3,x,y)"},
      {"2*x*y + x*y", kSimplify, "@times(3,x,y)"},
      {"x*y + y*x", kSimplify, "@times(2,x,y)"},
      {"x + 2*x + 3*y + 4*y", kSimplify, "@plus(@times(3,x),@times(7,y))"},
      {"2*x + x*y + 3*x", kSimplify, "@plus(@times(5,x),@times(x,y))"},
      {"x/2 + x/2", kSimplify, "x"},
      {"x - x + y", kSimplify, "y"},
      // A plain term is like a product of two factors only.
      {"x + 2*x*y", kSimplify, "@plus(x,@times(2,x,y))"},
      {"a*x + b*x", kSimplify, "@plus(@times(a,x),@times(b,x))"},
  };
  Check(rows);
}

TEST_F(SumRules, PlusRule4FactorsTheNumericGcdInFactorMode) {
  static const StructureRow rows[] = {
      // A term that loses its coefficient stays settled as a product of one factor.
      {"2*x + 4*y", kFactor, "@times(2,@plus(@times(x),@times(2,y)))"},
      {"x/2 + y/4", kFactor, "@times((1/2),@plus(@times(x),@times((1/2),y)))"},
      {"3 + 3*x", kFactor, "@times(3,@plus(1,@times(x)))"},
      {"-2*x - 4*y", kFactor, "@times(2,@plus(@times(-1,x),@times(-2,y)))"},
      {"6 + 4*x + 2/3*y", kFactor, "@times(2,@plus(3,@times(2,x),@times((1/3),y)))"},
      {"-x - 2*y", kFactor, "@plus(@times(-1,x),@times(-2,y))"},
      {"2*x + 3*y", kFactor, "@plus(@times(2,x),@times(3,y))"},
      {"3 + 2*x + 2*y", kFactor, "@plus(3,@times(2,x),@times(2,y))"},
      {"x/2 + y/3", kFactor, "@plus(@times((1/2),x),@times((1/3),y))"},
      {"x + 2*y", kFactor, "@plus(x,@times(2,y))"},
      {"2*x + 4*y", kSimplify, "@plus(@times(2,x),@times(4,y))"},
      // An undefined coefficient made the gcd -1, which TimesRule3 distributed back for ever.
      {"-h + 0/0", kFactor, "@plus(NA,@times(-1,h))"},
  };
  Check(rows);
}

TEST_F(SumRules, PlusRule3FactorsCommonFactorsInFactorMode) {
  static const StructureRow rows[] = {
      {"a*x + b*x", kFactor, "@times(@plus(a,b),x)"},
      {"x + x*y", kFactor, "@times(x,@plus(1,y))"},
      {"x*y + x", kFactor, "@times(x,@plus(1,y))"},
      {"x*y*z + x*y", kFactor, "@times(x,y,@plus(1,z))"},
      {"a*b + a*c + a", kFactor, "@times(a,@plus(1,b,c))"},
      {"x*y + x*z + 2*x", kFactor, "@times(x,@plus(2,y,z))"},
      {"a*b*x + c*e*x", kFactor, "@times(@plus(@times(a,b),@times(c,e)),x)"},
      {"0.5*x + 0.5*y", kFactor, "@times(0.5,@plus(x,y))"},
      {"2*a*x + 4*b*x", kFactor, "@times(2,@plus(a,@times(2,b)),x)"},
      {"@factor(a*x + b*x)", kSimplify, "@times(@plus(a,b),x)"},
      {"a + b", kFactor, "@plus(a,b)"},
      {"x + x^2", kFactor, "@plus(x,@pow(x,2))"},
      {"a*x + b*y", kFactor, "@plus(@times(a,x),@times(b,y))"},
      {"a*x + b*x", kSimplify, "@plus(@times(a,x),@times(b,x))"},
  };
  Check(rows);
}

TEST_F(SumRules, PlusRule5RebuildsSumsAsSubtraction) {
  static const StructureRow rows[] = {
      {"@plus(a, b, @UnaryMinus(c), @UnaryMinus(g), e)", ModeDisplay, "@plus(@minus(@plus(a,b),c,g),e)"},
      {"@plus(a, @times(-2, b))", ModeDisplay, "@minus(a,@times(2,b))"},
      {"@plus(a, @times(@UnaryMinus(b), c))", ModeDisplay, "@minus(a,@times(b,c))"},
      {"@plus(a, @times(@times(-2, b), c))", ModeDisplay, "@minus(a,@times(@times(2,b),c))"},
      {"@plus(a, @divide(-1, b))", ModeDisplay, "@minus(a,@divide(1,b))"},
      {"@plus(@UnaryMinus(3), x)", ModeDisplay, "@plus(@UnaryMinus(3),x)"},
      {"@plus(a, @times(2, b))", ModeDisplay, "@plus(a,@times(2,b))"},
      {"@plus(x)", ModeDisplay, "x"},
  };
  Check(rows);
  static const TextRow texts[] = {
      {"a - b - c", "a-b-c"},
      {"1 - x", "1-x"},
      {"x - 1", "-1+x"},
      {"a - 2*b + c", "a-2*b+c"},
      {"-x - y", "-x-y"},
  };
  ExpectTexts(texts, kSimplify);
}

}  // namespace
}  // namespace quillon::testing
