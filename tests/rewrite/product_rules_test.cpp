// The rules of @times through the exports: number folding with its fall back to doubles, -1 over
// a sum, powers of one base, expansion, and the display forms with quotients and unary minus.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

using ProductRules = ExpressionTest;

TEST_F(ProductRules, LeadingNumbersFoldAndZeroOrOneDecide) {
  static const StructureRow kRows[] = {
      {"2*3*x", 3, "@times(6,x)"},
      {"x*3*2", 3, "@times(6,x)"},
      {"2*3", 3, "6", IntType},
      {"1/2*2*x", 3, "x"},
      {"65536*65536", 3, "4294967296", RealType},
      {"2147483647*2", 3, "4294967294", RealType},
      {"(1/65536)*(1/65536)", 3, "2.3283064365386963e-10", RealType},  // reduced path overflows too
      {"1/3*3.0", 3, "1", RealType},
      {"x*0.0", 3, "0", IntType},
      {"0*log(x)*y", 3, "0", IntType},
      {"0*@Inf*x", 3, "@times(NA,x)"},  // the infinity was folded with the zero
      {"@times()", 3, "1", IntType},
      {"x*1.0", 3, "x"},
      {"FALSE*x", 3, "0", IntType},
      {"TRUE*2", 3, "TRUE", BoolType},  // keeps its class, with the product as its value
      {"TRUE*2*x", 3, "x"},             // ... which reads as 1.0
      {"TRUE*0.5", 3, "0.5", RealType},
      {"TRUE*(1/2)", 3, "NA", RationalType},  // a truth value has no rational: 0/0
  };
  ExpectStructures(kRows);
}

TEST_F(ProductRules, OnlyMinusOneDistributesOverASum) {
  static const StructureRow kRows[] = {
      {"-1*(a+b)", 3, "@plus(@times(-1,a),@times(-1,b))"},
      {"(a+b)*(-1)", 3, "@plus(@times(-1,a),@times(-1,b))"},
      {"-1*(a+b)*c", 3, "@times(-1,@plus(a,b),c)"},
      {"2*(a+b)", 3, "@times(2,@plus(a,b))"},
      {"-2*(a+b)", 3, "@times(-2,@plus(a,b))"},
  };
  ExpectStructures(kRows);
}

TEST_F(ProductRules, NeighboursOfEqualBaseMerge) {
  static const StructureRow kRows[] = {
      {"x*x", 3, "@pow(x,2)"},
      {"x^2*x^3", 3, "@pow(x,5)"},
      {"x*y*x", 3, "@times(@pow(x,2),y)"},
      {"(x+1)*(x+1)", 3, "@pow(@plus(1,x),2)"},
      {"x^b*x^a", 3, "@pow(x,@plus(a,b))"},
      {"x*x^a", 3, "@pow(x,@plus(1,a))"},
      {"x^a*y^u*x^b*y^v", 3, "@times(@pow(x,@plus(a,b)),@pow(y,@plus(u,v)))"},
      {"x*x^-1", 3, "1"},
      {"x^a*y^a", 3, "@times(@pow(x,a),@pow(y,a))"},
  };
  ExpectStructures(kRows);
}

TEST_F(ProductRules, ExpandMultipliesOutOnlyInsideTheWrapper) {
  static const StructureRow kRows[] = {
      {"@expand((a+b)*(c+f))", 3, "@plus(@times(a,c),@times(b,c),@times(a,f),@times(b,f))"},
      {"@expand(2*(a+b)*c)", 3, "@plus(@times(2,a,c),@times(2,b,c))"},
      {"@expand((a+b)*(c+f)*(g+h))", 3,
       "@plus(@times(a,c,g),@times(b,c,g),@times(a,f,g),@times(b,f,g),@times(a,c,h),@times(b,c,h),"
       "@times(a,f,h),@times(b,f,h))"},
      {"@expand(a*b)", 3, "@times(a,b)"},
      {"2*@expand((a+b)*c)", 3, "@times(2,@plus(@times(a,c),@times(b,c)))"},
      {"(a+b)*c", 3, "@times(@plus(a,b),c)"},
      {"@expand((a+b)*(a+b))", 3, "@plus(@pow(a,2),@times(2,a,b),@pow(b,2))"},  // a power first
  };
  ExpectStructures(kRows);
}

TEST_F(ProductRules, DisplayMakesQuotientsAndUnaryMinus) {
  static const StructureRow kRows[] = {
      {"x*y^-1", 7, "@divide(x,y)"},
      {"y^-1*x", 7, "@divide(x,y)"},
      {"2*x*y^-1*z^-2", 7, "@divide(@times(2,x),@times(y,@pow(z,2)))"},
      {"x^-1*y^-1", 7, "@divide(1,@times(x,y))"},
      {"x*y^(-1/2)", 7, "@divide(x,@sqrt(y))"},
      {"x*y^-1.5", 7, "@divide(x,@pow(y,1.5))"},
      {"x*y^-a", 7, "@times(x,@pow(y,@UnaryMinus(a)))"},
      {"x/2", 7, "@times((1/2),x)"},
      {"-x", 7, "@UnaryMinus(x)"},
      {"-a*b", 7, "@times(@UnaryMinus(a),b)"},
      {"-x/y", 7, "@divide(@UnaryMinus(x),y)"},
      {"-(a/b)", 6, "@divide(@UnaryMinus(a),b)"},  // the quotient was made before the sign
      {"-1*(1/y)", 7, "@divide(-1,y)"},
      {"-2*x", 7, "@times(-2,x)"},
  };
  ExpectStructures(kRows);
}

TEST_F(ProductRules, DisplayText) {
  static const TextRow kRows[] = {
      {"2*x*y^-1*z^-2", "2*x/(y*z^2)"},
      {"x*y^(-1/2)", "x/@sqrt(y)"},
      {"-a*b/c", "-a*b/c"},
  };
  ExpectTexts(kRows, 3);
}

}  // namespace
}  // namespace quillon::testing
