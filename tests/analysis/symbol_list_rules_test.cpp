// Symbol lists and index ranges through the exports: distinct references by class, series
// newest first, matrix references by second index first, and the extremes of an empty range.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

class SymbolLists : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    mathsymtable_add(table, "x", 15);  // series, class 4
    mathsymtable_add(table, "w", 1);   // series, class 32
    mathsymtable_add(table, "m", 40);  // matrix, class 8
    mathsymtable_add(table, "s", 43);  // vector, class 2
    mathsymtable_add(table, "c", 38);  // class 16
  }
  std::string SymList(const char* text, int32_t mask) {
    mathexpr* e = mathexpr_create(table, text);
    mathexpr* list = mathexpr_symlist(e, mask);
    std::string result = Structure(list);
    mathexpr_destroy(list);
    mathexpr_destroy(e);
    return result;
  }
};

TEST_F(SymbolLists, DistinctReferencesOfTheChosenClassesInTreeOrder) {
  struct Row {
    const char* text;
    int32_t mask;
    const char* expected;
  };
  const Row rows[] = {
      {"3", 63, "@list()"},
      {"x + x", 63, "@list(x)"},
      {"x(-2) + x + x(-1) + x(-2)", 63, "@list(x,x(-1),x(-2))"},
      {"m(2, 1) + m(1, 2) + m(1, 1)", 63, "@list(m(1,1),m(2,1),m(1,2))"},
      {"u + c + s(1) + w + x + m(1, 1)", 63, "@list(c,m(1,1),s(1),u,w,x)"},
      {"u + c + s(1) + w + x + m(1, 1)", 36, "@list(w,x)"},
      {"u + c + s(1) + w + x + m(1, 1)", 1, "@list(u)"},
      {"a + x(-1) + x", 0, "@list()"},
      {"a + x(-1) + x", 36, "@list(x,x(-1))"},
      {"log(c*s(2)) + @sin(x(1))", 2 | 4, "@list(s(2),x(1))"},
  };
  for (const Row& row : rows) EXPECT_EQ(SymList(row.text, row.mask), row.expected) << row.text << " / " << row.mask;
}

TEST_F(SymbolLists, IndexRanges) {
  const TextRow rows[] = {
      {"@IRange1D(x + x(-3) + x(2), x)", "{-3,2}"},
      {"@IRange1D(x + x(-3) + x(2), x(-3))", "{-3,2}"},
      {"@IRange1D(y, x)", "{2147483647,-2147483648}"},
      {"@IRange1D(x, x)", "{0,0}"},
      {"@IRange1D(x(4), {})", "{2147483647,-2147483648}"},
      {"@IRange1D(x(4) + w(-5) + c, {w, x})", "{-5,4}"},
      {"@IRange1D(x(4) + w(-5), 7)", "{-5,4}"},
      {"@IRange1D(m(1, 2), m(1, 1))", "{2147483647,-2147483648}"},
      {"@IRange2D(m(1, 2) + m(3, 4), m(1, 1))", "{1,3,2,4}"},
      {"@IRange2D(x(1), x)", "{2147483647,-2147483648,2147483647,-2147483648}"},
      {"@SymList(x, y, 1)", "@SymList(x,y,1)"},
      {"@SymList(x, y)", "@SymList(x,y)"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(SymbolLists, RangeExportsReportEmptinessAndLeaveOutputsOfErrorsAlone) {
  struct Row {
    const char* e;
    const char* s;
    uint32_t found;
    int32_t low, high;
  };
  const Row rows[] = {
      {"x(-2) + x(3)", "x", 1, -2, 3},
      {"y", "x", 0, 2147483647, -2147483647 - 1},
      {"x +", "x", 0, 5, 5},  // an error: the outputs keep their values
  };
  for (const Row& row : rows) {
    mathexpr* e = mathexpr_create(table, row.e);
    mathexpr* s = mathexpr_create(table, row.s);
    int32_t low = 5, high = 5;
    EXPECT_EQ(mathexpr_irange1d(e, s, &low, &high), row.found) << row.e;
    EXPECT_EQ(low, row.low) << row.e;
    EXPECT_EQ(high, row.high) << row.e;
    mathexpr_destroy(e);
    mathexpr_destroy(s);
  }
  mathexpr* e = mathexpr_create(table, "m(3, 4) + m(1, 7)");
  mathexpr* s = mathexpr_create(table, "m(1, 1)");
  int32_t o[4] = {0, 0, 0, 0};
  EXPECT_EQ(mathexpr_irange2d(e, s, &o[0], &o[1], &o[2], &o[3]), 1u);
  EXPECT_EQ(o[0] * 1000 + o[1] * 100 + o[2] * 10 + o[3], 1347);
  mathexpr_destroy(e);
  mathexpr_destroy(s);
}

}  // namespace
}  // namespace quillon::testing
