// The parser through mathexpr_create: texts to trees, and to the messages of syntax errors.
#include <gtest/gtest.h>

#include <string>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

int32_t QUILLON_CALL ResolveByName(const char* name) {
  const std::string n = name;
  if (n == "ser") return 15;
  if (n == "mat") return 40;
  if (n == "vec") return 42;
  if (n == "scalar") return 43;
  if (n == "other") return 16;
  return 199;
}

// table, which adds unknown names, also holds m, v and sin with the types the rows need; known
// adds only what its resolver knows.
class Parser : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    mathsymtable_add(table, "m", 40);
    mathsymtable_add(table, "v", 16);
    mathsymtable_add(table, "sin", 1);
    known = mathsymtable_create(ResolveByName, 0);
  }
  void TearDown() override {
    mathsymtable_destroy(known);
    ExpressionTest::TearDown();
  }
  mathsymtable* known = nullptr;
};

struct Row {
  const char* text;
  const char* expected;
};

void ExpectRows(mathsymtable* table, std::initializer_list<Row> rows) {
  for (const Row& row : rows) EXPECT_EQ(ParseStructure(table, row.text), row.expected) << "text: " << row.text;
}

TEST_F(Parser, OperatorsByPriorityAndAssociativity) {
  ExpectRows(table, {
      {"1 + 2", "@plus(1,2)"},
      {"a + b + c", "@plus(@plus(a,b),c)"},
      {"a-b-c", "@minus(@minus(a,b),c)"},
      {"a^b^c", "@pow(@pow(a,b),c)"},
      {"a=b=c", "@eq(a,@eq(b,c))"},
      {"a<b<c", "@lt(@lt(a,b),c)"},
      {"a<b=c", "@lt(a,@eq(b,c))"},
      {"a=b<c", "@lt(@eq(a,b),c)"},
      {"a + b*c", "@plus(a,@times(b,c))"},
      {"(a+b)*c", "@times(@plus(a,b),c)"},
      {"-2^2", "@UnaryMinus(@pow(2,2))"},
      {"2^-1", "@pow(2,@UnaryMinus(1))"},
      {"- -x", "@UnaryMinus(@UnaryMinus(x))"},
      {"a and b or not(c)", "@or(@and(a,b),not(c))"},
      {"a := b <> c", "@assign(a,@neq(b,c))"},
      {"x < = 2", "@le(x,2)"},
  });
}

TEST_F(Parser, PrimariesListsAndWildcards) {
  ExpectRows(table, {
      {"{}", "@list()"},
      {"{1,2}", "@list(1,2)"},
      {"{1,{2}}", "@list(1,@list(2))"},
      {"#1 + #S12", "@plus(#1,#S12)"},
      {"TRUE", "TRUE"},
      {"1.5", "1.5"},
      {"\"a\"\"b\"", "\"a\"\"b\""},
  });
}

TEST_F(Parser, FunctionCallsAliasesAndDerivativeNotation) {
  ExpectRows(table, {
      {"log", "log()"},
      {"log()", "log()"},
      {"sqr(x)", "@sqrt(x)"},
      {"@LOG(x)", "log(x)"},
      {"sin(x)", "@sin(x)"},
      {"@sin[1](x)", "@sin[1](x)"},
      {"@sin[](x)", "@sin(x)"},
      {"@pow[1,0](x,y)", "@pow[1,0](x,y)"},
      {"@pow[1](x,y)", "@pow[1,0](x,y)"},
  });
}

TEST_F(Parser, SymbolIndices) {
  ExpectRows(table, {
      {"x(-1)", "x(-1)"},
      {"x(+-+1)", "x(-1)"},
      {"x(0)", "x"},
      {"m(1,2)", "m(1,2)"},
  });
}

TEST_F(Parser, Messages) {
  ExpectRows(table, {
      {"2 3", "<\"syntax error: missing operator between parts of expression\">"},
      {"(1", "<\"syntax error: mismatched parentheses\">"},
      {"1)", "<\"syntax error: missing operator between parts of expression\">"},
      {"", "<\"syntax error: expression ends unexpectedly\">"},
      {"{1 2}", "<\"syntax error: missing punctuation\">"},
      {"1 + %", "<\"syntax error: unexpected character\">"},
      {"#x", "<\"syntax error: bad wildcard\">"},
      {"@sin[x](y)", "<\"syntax error: non-integer derivative\">"},
      {"@sin[1(y)", "<\"syntax error: ']' not found at end of derivative\">"},
      {"@pow[1,0](x)", "<\"syntax error: function derivatives and arguments do not match\">"},
      {"log(x", "<\"syntax error: ')' not found after function arguments\">"},
      {"tan(x)", "<\"syntax error: unrecognized function 'tan' or non-integer index\">"},
      {"x(1,-2)", "<\"syntax error: matrix index is non-positive\">"},
      {"x(1", "<\"syntax error: ')' not found after index\">"},
      {"m(0,2)", "<\"syntax error: 'm' has illegal indices for object type\">"},
      {"m(1)", "<\"syntax error: 'm' has illegal indices for object type\">"},
      {"m", "<\"syntax error: 'm' has illegal indices for object type\">"},
      {"v", "<\"syntax error: object 'v' is of a type not allowed in expressions\">"},
  });
  EXPECT_EQ(ParseStructure(nullptr, "x"), "<\"syntax error: unrecognized identifier 'x'\">");
}

TEST_F(Parser, ResolverDecidesWhatExistsWithoutAutoAdd) {
  ExpectRows(known, {
      {"ser(-2) + scalar(3)", "@plus(ser(-2),scalar(3))"},
      {"vec(2)", "vec(2)"},
      {"nobody", "<\"syntax error: unrecognized identifier 'nobody'\">"},
      {"other", "<\"syntax error: object 'other' is of a type not allowed in expressions\">"},
  });
}

TEST_F(Parser, AssignmentFlagChangesOnlyTheTopEquation) {
  EXPECT_EQ(ParseStructure(table, "a = b", 1), "@assign(a,b)");
  EXPECT_EQ(ParseStructure(table, "a = b = c", 1), "@assign(a,@eq(b,c))");
  EXPECT_EQ(ParseStructure(table, "f(a = b)", 1), "<\"syntax error: unrecognized function 'f' or non-integer index\">");
  EXPECT_EQ(ParseStructure(table, "log(a = b)", 1), "log(@eq(a,b))");
}

std::string Repeat(const std::string& piece, int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += piece;
  return text;
}

TEST_F(Parser, NestingIsBoundedAtTheLimitAndNotBelow) {
  const std::string tooDeep = "<\"syntax error: expression is nested too deeply\">";
  struct Shape {
    const char* name;
    std::string (*text)(int);
  };
  const Shape shapes[] = {
      {"parentheses", [](int n) { return Repeat("(", n) + "x" + Repeat(")", n); }},
      {"prefix operators", [](int n) { return Repeat("-", n) + "x"; }},
      {"function calls", [](int n) { return Repeat("log(", n) + "x" + Repeat(")", n); }},
      {"lists", [](int n) { return Repeat("{", n) + "x" + Repeat("}", n); }},
      {"right operands", [](int n) { return Repeat("x=", n) + "x"; }},
  };
  for (const Shape& shape : shapes) {
    EXPECT_NE(ParseStructure(table, shape.text(256).c_str()), tooDeep) << shape.name;
    EXPECT_EQ(ParseStructure(table, shape.text(257).c_str()), tooDeep) << shape.name;
  }
  EXPECT_EQ(ParseStructure(table, Repeat("(", 100000).c_str()), tooDeep);
}

TEST_F(Parser, LongChainsParseWithoutNesting) {
  std::string sum = "x";
  for (int i = 0; i < 100000; ++i) sum += "+x";
  mathexpr* e = mathexpr_create(table, sum.c_str());
  EXPECT_FALSE(mathexpr_is_error(e));
  mathexpr_destroy(e);
}

}  // namespace
}  // namespace quillon::testing
