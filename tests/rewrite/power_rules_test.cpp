// Rules of @pow through the exports: numeric powers with their fall to doubles, exponents 0 and
// 1, nested powers, powers of products, multinomial expansion and the reciprocal's display form.
#include <gtest/gtest.h>

#include <string>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

constexpr uint32_t kSimplify = 3;           // canonical, then simplify
constexpr uint32_t kExpand = 3 | 0x20000;   // the same with expansion in the whole tree
constexpr uint32_t kNumeric = 3 | 0x10000;  // the same with rationals turned into reals
constexpr uint32_t kExpandOnly = 0x20000;   // expansion without sorting or collapsing

const StructureRow kStructureRows[] = {
    // Numeric bases: exact while root and power fit 32 bits, then the double power.
    {"2^10", kSimplify, "1024"},
    {"2^-2", kSimplify, "(1/4)"},
    {"(2/3)^2", kSimplify, "(4/9)"},
    {"4^(1/2)", kSimplify, "2"},
    {"(-8)^(1/3)", kSimplify, "-2"},
    {"(-8)^(2/3)", kSimplify, "4"},
    {"0^0", kSimplify, "1"},
    {"0^-1", kSimplify, "@Inf"},
    {"2^(1/2)", kSimplify, "1.4142135623730951"},
    {"2^40", kSimplify, "1099511627776"},
    {"65536^2", kSimplify, "4294967296"},
    {"(-4)^(1/2)", kSimplify, "NA"},
    {"2^1.5", kSimplify, "2.8284271247461903"},
    {"0.0^-1", kSimplify, "@Inf"},
    {"@N(2^-2)", kNumeric, "0.25"},  // the rational is left unsettled for the numeric pass
    // Symbolic bases take only the integer exponents 0 and 1; 0 and 1 absorb any exponent.
    {"x^1", kSimplify, "x"},
    {"x^0", kSimplify, "1"},
    {"x^1.0", kSimplify, "@pow(x,1)"},
    {"1^x", kSimplify, "1"},
    {"0^x", kSimplify, "0"},
    {"1.0^x", kSimplify, "1"},
    {"2.5^x", kSimplify, "@pow(2.5,x)"},
    {"@pow()", kSimplify, "1"},
    {"@pow(a,b,c)", kSimplify, "@pow(a,b,c)"},
    {"TRUE^2", kSimplify, "@pow(TRUE,2)"},
    {"2^TRUE", kSimplify, "@pow(2,TRUE)"},
    {"1^TRUE", kSimplify, "1"},
    // Nested powers multiply their exponents, with no test of signs.
    {"(x^a)^b", kSimplify, "@pow(x,@times(a,b))"},
    {"(x^b)^a", kSimplify, "@pow(x,@times(a,b))"},
    {"((x^a)^b)^c", kSimplify, "@pow(x,@times(a,b,c))"},
    {"(x^2)^3", kSimplify, "@pow(x,6)"},
    {"(x^2)^(1/2)", kSimplify, "x"},
    {"(x^(1/2))^2", kSimplify, "x"},
    {"x^(a^b)", kSimplify, "@pow(x,@pow(a,b))"},
    // Integer powers of products distribute, negative ones too.
    {"(a*b)^3", kSimplify, "@times(@pow(a,3),@pow(b,3))"},
    {"(2*x)^3", kSimplify, "@times(8,@pow(x,3))"},
    {"(a*b)^-1", kSimplify, "@times(@pow(a,-1),@pow(b,-1))"},
    {"(a/b)^2", kSimplify, "@times(@pow(a,2),@pow(b,-2))"},
    {"(a*b)^(1/2)", kSimplify, "@pow(@times(a,b),(1/2))"},
    // Expansion of sums, for exponents 2 to 12 and only below an expanding mode.
    {"(a+b)^2", kExpand, "@plus(@pow(a,2),@times(2,a,b),@pow(b,2))"},
    {"(a+b+c)^2", kExpand, "@plus(@pow(a,2),@times(2,a,b),@pow(b,2),@times(2,a,c),@times(2,b,c),@pow(c,2))"},
    {"(x+1)^3", kExpand, "@plus(1,@times(3,x),@times(3,@pow(x,2)),@pow(x,3))"},
    {"(a+b)^2", kSimplify, "@pow(@plus(a,b),2)"},
    {"(a+b)^13", kExpand, "@pow(@plus(a,b),13)"},
    {"(a+b)^-2", kExpand, "@pow(@plus(a,b),-2)"},
    {"(a+b)^1", kExpand, "@plus(a,b)"},
    {"(a+b)^n", kExpand, "@pow(@plus(a,b),n)"},
    {"2*@expand((a+b)^2)", kSimplify, "@times(2,@plus(@pow(a,2),@times(2,a,b),@pow(b,2)))"},
    // Unsorted, the products come in the order of the compositions of the exponent.
    {"@plus(c,b,a)^2", kExpandOnly,
     "@plus(@times(@pow(c,2)),@times(2,c,b),@times(@pow(b,2)),@times(2,c,a),@times(2,b,a),@times(@pow(a,2)))"},
};

// Only the exponent -1 turns into a quotient; @sqrt is left to its own display rule.
const TextRow kDisplayRows[] = {
    {"x^-1", "1/x"},
    {"(x+1)^-1", "1/(1+x)"},
    {"x^-2", "x^-2"},
    {"x^(1/2)", "@sqrt(x)"},
    {"x^(-1/2)", "x^(-1/2)"},
};

using PowerRules = ExpressionTest;

TEST_F(PowerRules, Structures) { ExpectStructures(kStructureRows); }

TEST_F(PowerRules, DisplayText) { ExpectTexts(kDisplayRows, kSimplify); }

TEST_F(PowerRules, TwelfthPowerOfThreeTermsHasEveryComposition) {
  mathexpr* e = mathexpr_create(table, "@expand((a+b+c)^12)");
  mathexpr_evaluate(e, kSimplify);
  const std::string structure = Structure(e);
  EXPECT_EQ(RootOf(e)->childCount, 91) << "C(14, 2) products";
  EXPECT_NE(structure.find("@times(34650,@pow(a,4),@pow(b,4),@pow(c,4))"), std::string::npos);
  EXPECT_NE(structure.find("@times(12,a,@pow(c,11))"), std::string::npos);
  mathexpr_destroy(e);
}

}  // namespace
}  // namespace quillon::testing
