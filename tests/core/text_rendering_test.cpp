// Rendering of raw parsed trees and hand-made leaves: parentheses by priority and associativity,
// the spaced layout, indices, derivative notation, every special value, and a chain too deep
// for recursion.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "core/date_node.h"
#include "core/error_node.h"
#include "core/rational_node.h"
#include "core/real_node.h"
#include "core/string_node.h"
#include "core/text_rendering.h"
#include "core/void_node.h"
#include "core/well_known.h"
#include "support/api_helpers.h"

namespace quillon::testing {
namespace {

class TextRendering : public NoLeakTest {
 protected:
  // Hand-made trees use the catalogue's operators before any parse.
  static void SetUpTestSuite() { quillon_init(); }
  void SetUp() override {
    NoLeakTest::SetUp();
    table = mathsymtable_create(nullptr, 1);
    mathsymtable_add(table, "m", 40);
  }
  void TearDown() override {
    mathsymtable_destroy(table);
    NoLeakTest::TearDown();
  }
  std::string Render(const std::string& text, bool spaced) {
    mathexpr* e = mathexpr_create(table, text.c_str());
    std::string result = RenderText(RootOf(e), spaced).c_str();
    mathexpr_destroy(e);
    return result;
  }
  mathsymtable* table = nullptr;
};

struct Row {
  const char* text;
  const char* expected;
};

TEST_F(TextRendering, ParenthesesByPriorityAndAssociativity) {
  const Row rows[] = {
      {"(a+b)*c", "(a+b)*c"},     {"a+(b*c)", "a+b*c"},       {"a-(b-c)", "a-(b-c)"},
      {"(a-b)-c", "a-b-c"},       {"a+(b+c)", "a+(b+c)"},     {"(a^b)^c", "a^b^c"},
      {"a^(b^c)", "a^(b^c)"},     {"a=(b=c)", "a=b=c"},       {"(a=b)=c", "(a=b)=c"},
      {"(a*b)/c", "a*b/c"},       {"a/(b*c)", "a/(b*c)"},     {"a<(b<c)", "a<(b<c)"},
      {"-(a+b)", "-(a+b)"},       {"-(a^2)", "-a^2"},         {"2^-1", "2^(-1)"},
      {"- -x", "--x"},            {"a := (b <> c)", "a:=b<>c"},
      {"a and (b or c)", "a and (b or c)"},                  {"(a or b) and c", "(a or b) and c"},
      {"log((a+b)*(c))", "log((a+b)*c)"},                    {"{(a), (b+c)*2}", "{a,(b+c)*2}"},
  };
  for (const Row& row : rows) EXPECT_EQ(Render(row.text, false), row.expected) << "text: " << row.text;
}

TEST_F(TextRendering, SpacedLayout) {
  const Row rows[] = {
      {"a+b*c", "a + b*c"},
      {"a+b+c+z", "a + b + c + z"},
      {"(a+b)*c", "(a + b) * c"},
      {"a*b*c+z", "a*b*c + z"},
      {"-(a+b)", "-(a + b)"},
      {"log(a+b*c,z)", "log(a + b*c, z)"},
      {"{a*b,c}", "{a * b, c}"},
      {"a and b", "a and b"},
  };
  for (const Row& row : rows) EXPECT_EQ(Render(row.text, true), row.expected) << "text: " << row.text;
}

TEST_F(TextRendering, LeavesCallsAndIndices) {
  const Row rows[] = {
      {"x(0)", "x"},
      {"x(-1)", "x(-1)"},
      {"m(1,2)", "m(1,2)"},
      {"@plus[1,0](x,y)", "@plus[1,0](x,y)"},
      {"@sin[1](x)*2", "@sin[1](x)*2"},
      {"sqr(x)", "@sqrt(x)"},
      {"not(a)", "not(a)"},
      {"log()", "log()"},
      {"{}", "{}"},
      {"#1+#S12", "#1+#S12"},
      {"TRUE or FALSE", "TRUE or FALSE"},
      {"0.1", "0.10000000000000001"},
      {"1e300", "1.0000000000000001e+300"},
      {"@Inf+NA", "@Inf+NA"},
      {"-@Inf", "-@Inf"},
      {"1995Q3", "1995Q3"},
      {"1995:3:14", "1995:3:14"},
      {"\"a\"\"b\"", "\"a\"\"b\""},
      {"1 + %", "<\"syntax error: unexpected character\">"},
  };
  for (const Row& row : rows) EXPECT_EQ(Render(row.text, false), row.expected) << "text: " << row.text;
}

TEST_F(TextRendering, ValuesTheParserDoesNotMake) {
  Definitions defs;
  SymbolDef* m = defs.Symbol("m", SymbolClass8);
  SymbolDef* x = defs.Symbol("x");
  const double inf = std::numeric_limits<double>::infinity();
  struct Case {
    ENode* tree;
    const char* expected;
  };
  const Case cases[] = {
      {new RationalENode(1, 2), "(1/2)"},
      {Call(fnPlus, new RationalENode(-1, 2), Sym(x)), "(-1/2)+x"},
      {new RationalENode(1, 0), "@Inf"},
      {new RationalENode(-1, 0), "-@Inf"},
      {new RationalENode(2, 0), "NA"},
      {new RationalENode(0, 0), "NA"},
      {new RealENode(-inf), "-@Inf"},
      {new RealENode(std::numeric_limits<double>::quiet_NaN()), "NA"},
      {Call(fnPow, Int(-1), Sym(x)), "-1^x"},
      {Sym(m, 0, -1), "m"},
      {Sym(m, 0, 3), "m(0,3)"},
      {new VoidENode(), "(void)"},
      {new DateENode(DateValue{.year = 2001, .period = 12, .subperiod = -1, .separator = 'M'}), "2001M12"},
      {new StringENode(SharedText("say \"hi\"")), "\"say \"\"hi\"\"\""},
      {Call(fnTimes, new ErrorENode(SharedText("no \"quote\" escape")), Sym(x)), "<\"no \"quote\" escape\">*x"},
      {new FunctionENode(fnPlus, 1), "@plus()"},
  };
  for (const Case& c : cases) {
    ExprHandle held(c.tree);
    EXPECT_EQ(std::string(RenderText(c.tree, false).c_str()), c.expected);
  }
}

// A left spine of 100,000 operators prints without recursing, blanked all along when spaced.
TEST_F(TextRendering, DeepChain) {
  std::string sum = "x", spaced = "x";
  for (int i = 0; i < 100000; ++i) {
    sum += i % 2 == 0 ? "+y" : "-z";
    spaced += i % 2 == 0 ? " + y" : " - z";
  }
  EXPECT_EQ(Render(sum, false), sum);
  EXPECT_EQ(Render(sum, true), spaced);
}

}  // namespace
}  // namespace quillon::testing
