// Unary signs, subtraction and division in the canonical stage, the folding of @and and @or,
// and the numeric rules of log and exp, through the exports.
#include <gtest/gtest.h>

#include "core/bool_node.h"
#include "support/expression_test.h"

namespace quillon::testing {
namespace {

constexpr uint32_t kCanonical = 2;  // no sorting, no arithmetic
constexpr uint32_t kSimplify = 3;   // canonical, then simplify

const StructureRow kStructureRows[] = {
    // The canonical stage only rebuilds: no sorting, flattening or folding yet.
    {"+x", kCanonical, "x"},
    {"-x", kCanonical, "@times(-1,x)"},
    {"-2", kCanonical, "@times(-1,2)"},
    {"-(-x)", kCanonical, "@times(-1,@times(-1,x))"},
    {"a - b - c", kCanonical, "@plus(@plus(a,@times(-1,b)),@times(-1,c))"},
    {"a - b/c", kCanonical, "@plus(a,@times(-1,@times(b,@pow(c,-1))))"},
    {"1/2", kCanonical, "@times(1,@pow(2,-1))"},
    {"a - b", 1, "@minus(a,b)"},  // simplify alone does not know the operator
    // Then the simplify stage does the arithmetic.
    {"-(-x)", kSimplify, "x"},
    {"a - b - c", kSimplify, "@plus(a,@times(-1,b),@times(-1,c))"},
    {"1/2", kSimplify, "(1/2)"},
    {"1/0", kSimplify, "@Inf"},
    // Call forms: extra middle arguments are lost, too few leave the node alone.
    {"@minus(a,b,c)", kCanonical, "@plus(a,@times(-1,c))"},
    {"@divide(a,b,c)", kCanonical, "@times(a,@pow(c,-1))"},
    {"@plus(@UnaryPlus(a,b),c)", kCanonical, "@plus(a,b,c)"},
    {"@UnaryPlus(a,b)", kCanonical, "a"},
    {"@UnaryMinus(a,b)", kCanonical, "@times(-1,a)"},
    {"@minus(a)", kSimplify, "@minus(a)"},
    {"@divide(a)", kSimplify, "@divide(a)"},
    {"@UnaryPlus()", kSimplify, "@UnaryPlus()"},
    // Connectives keep the written order; the first known value that is not neutral wins.
    {"TRUE and x", kSimplify, "x"},
    {"x and TRUE and y", kSimplify, "@and(x,y)"},
    {"x and FALSE", kSimplify, "FALSE"},
    {"x and (y or TRUE)", kSimplify, "x"},
    {"TRUE and TRUE", kSimplify, "TRUE"},
    {"x and y", kSimplify, "@and(x,y)"},
    {"1 and x", kSimplify, "@and(1,x)"},
    {"TRUE and x", kCanonical, "@and(TRUE,x)"},
    {"@and()", kSimplify, "TRUE"},
    {"x or TRUE", kSimplify, "TRUE"},
    {"x or FALSE or y", kSimplify, "@or(x,y)"},
    {"@or()", kSimplify, "FALSE"},
    // log and exp fold the exact neutral argument and reals only.
    {"log(1)", kSimplify, "0"},
    {"log(2)", kSimplify, "log(2)"},
    {"log(2.0)", kSimplify, "0.69314718055994529"},
    {"log(0.0)", kSimplify, "-@Inf"},
    {"log(-1.0)", kSimplify, "NA"},
    {"log(1,2)", kSimplify, "log(1,2)"},
    {"exp(0)", kSimplify, "1"},
    {"exp(1)", kSimplify, "exp(1)"},
    {"exp(1.0)", kSimplify, "2.7182818284590451"},
};

const TextRow kTextRows[] = {
    {"a - b", "a-b"},
    {"a / b", "a/b"},
    {"-x", "-x"},
    {"a - b/c", "a-b/c"},
};

using SignLogicRules = ExpressionTest;

TEST_F(SignLogicRules, Structure) { ExpectStructures(kStructureRows); }

TEST_F(SignLogicRules, TextRoundTrip) { ExpectTexts(kTextRows, kSimplify); }

// A sum of truth values leaves a value other than 0 and 1: @and takes it for false and @or for
// true, and either way it is the result.
TEST_F(SignLogicRules, TruthValueOtherThanZeroOrOne) {
  for (const char* text : {"TRUE and x", "FALSE or x"}) {
    mathexpr* e = mathexpr_create(table, text);
    static_cast<BoolENode*>(RootOf(e)->firstChild)->value = 2;
    mathexpr_evaluate(e, kSimplify);
    ASSERT_EQ(RootOf(e)->GetType(), BoolType) << text;
    EXPECT_EQ(static_cast<BoolENode*>(RootOf(e))->value, 2) << text;
    mathexpr_destroy(e);
  }
}

}  // namespace
}  // namespace quillon::testing
