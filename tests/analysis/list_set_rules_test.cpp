// The algebra of lists through the language and the exports: order and repeats of @join, the
// sorted sets of @union, @intersection and @complement, one level of flattening, and equality
// by the order of trees rather than by value.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

class ListAlgebra : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    mathsymtable_add(table, "x", 15);
  }
};

TEST_F(ListAlgebra, SortJoinAndSetOperations) {
  const TextRow rows[] = {
      {"@sort({c, a, b})", "{a,b,c}"},
      {"@sort(x)", "x"},
      {"@sort({@sin(a), b, \"s\", 0.5, 1/2, 2})", "{2,(1/2),0.5,\"s\",b,@sin(a)}"},
      {"@sort(@mod(c, a))", "@mod(c,a)"},
      {"@sort({x(-2), x, x(-1)})", "{x,x(-1),x(-2)}"},
      {"@sort({}, {})", "@sort({},{})"},
      {"@join({b, a}, c, {e})", "{b,a,c,e}"},
      {"@join({{a}}, {b})", "{{a},b}"},
      {"@join()", "{}"},
      {"@union()", "{}"},
      {"@union({b, a}, {a, c})", "{a,b,c}"},
      {"@union({1, 1.0, 1})", "{1,1}"},  // an integer and a real,
      {"@union({b, b, a, b})", "{a,b}"},
      {"@union({{b, a}}, {{b, a}})", "{{b,a}}"},
      {"@intersection()", "{}"},
      {"@intersection({a, a, b}, {a, b, b})", "{a,b}"},
      {"@intersection({a}, {b})", "{}"},
      {"@intersection({a, b}, a)", "{a}"},
      {"@intersection({c, b, b})", "{b,c}"},
      {"@intersection({a, b, c}, {c, b}, {b, d, c, c})", "{b,c}"},
      {"@intersection({1, 2}, {1.0, 2})", "{2}"},
      {"@complement()", "{}"},
      {"@complement({a, b, b, c}, {b})", "{a,c}"},
      {"@complement({b, b})", "{b}"},
      {"@complement(x, {x})", "{}"},
      {"@complement(x, {y})", "{x}"},
      {"@complement({f, c, b, a}, {a}, {c, c}, e)", "{b,f}"},
      {"@complement({}, {a})", "{}"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(ListAlgebra, ExportsWorkOnCopies) {
  struct Row {
    mathexpr* (*operation)(mathexpr*, mathexpr*);
    const char* expected;
  };
  const Row rows[] = {
      {mathexpr_join, "@list(c,a,a,b)"},
      {mathexpr_union, "@list(a,b,c)"},
      {mathexpr_intersection, "@list(a)"},
      {mathexpr_complement, "@list(c)"},
  };
  mathexpr* a = mathexpr_create(table, "{c, a}");
  mathexpr* b = mathexpr_create(table, "{a, b}");
  for (const Row& row : rows) {
    mathexpr* result = row.operation(a, b);
    EXPECT_EQ(Structure(result), row.expected);
    mathexpr_destroy(result);
  }
  mathexpr* sorted = mathexpr_sort(a);
  mathexpr* distinct = mathexpr_distinct(b);
  EXPECT_EQ(Structure(sorted), "@list(a,c)");
  EXPECT_EQ(Structure(distinct), "@list(a,b)");
  EXPECT_EQ(Structure(a), "@list(c,a)") << "the host's list is not sorted in place";
  mathexpr_destroy(sorted);
  mathexpr_destroy(distinct);
  mathexpr_destroy(a);
  mathexpr_destroy(b);
}

}  // namespace
}  // namespace quillon::testing
