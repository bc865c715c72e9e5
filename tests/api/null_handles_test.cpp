// A NULL handle or table at any export: the export's neutral answer, never a crash. Each row
// is a host mistake that used to dereference the null pointer.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "quillon.h"
#include "support/test_trees.h"

namespace quillon::testing {
namespace {

class NullHandles : public NoLeakTest {
 protected:
  static void SetUpTestSuite() { quillon_init(); }
};

struct HandleRow {
  const char* name;
  std::function<mathexpr*()> call;
};

TEST_F(NullHandles, ExportsReturningAHandleGiveTheEmptyExpression) {
  const HandleRow rows[] = {
      {"clone", [] { return mathexpr_clone(nullptr); }},
      {"first_child", [] { return mathexpr_first_child(nullptr); }},
      {"deriv", [] { return mathexpr_deriv(nullptr, nullptr); }},
      {"deriv2", [] { return mathexpr_deriv2(nullptr, nullptr, nullptr); }},
      {"derivx", [] { return mathexpr_derivx(nullptr, nullptr, 2); }},
      {"taylor", [] { return mathexpr_taylor(nullptr, nullptr, nullptr, 3); }},
      {"lincoefs", [] { return mathexpr_lincoefs(nullptr, nullptr); }},
      {"symlist", [] { return mathexpr_symlist(nullptr, 63); }},
      {"normalize", [] { return mathexpr_normalize(nullptr, nullptr); }},
      {"sort", [] { return mathexpr_sort(nullptr); }},
      {"distinct", [] { return mathexpr_distinct(nullptr); }},
      {"join", [] { return mathexpr_join(nullptr, nullptr); }},
      {"union", [] { return mathexpr_union(nullptr, nullptr); }},
      {"intersection", [] { return mathexpr_intersection(nullptr, nullptr); }},
      {"complement", [] { return mathexpr_complement(nullptr, nullptr); }},
      {"find", [] { return mathexpr_find(nullptr, nullptr, 1); }},
  };
  for (const HandleRow& row : rows) {
    mathexpr* e = row.call();
    ASSERT_NE(e, nullptr) << row.name;
    EXPECT_EQ(mathexpr_is_void(e), 1u) << row.name;
    mathexpr_destroy(e);
  }
}

TEST_F(NullHandles, OneNullAmongRealArgumentsStillGivesTheEmptyExpressionAndLeaksNothing) {
  mathexpr* x = mathexpr_create(nullptr, "{1, 2}");
  mathexpr* results[] = {mathexpr_deriv(x, nullptr), mathexpr_taylor(x, x, nullptr, 2), mathexpr_join(nullptr, x)};
  for (mathexpr* e : results) {
    EXPECT_EQ(mathexpr_is_void(e), 1u);
    mathexpr_destroy(e);
  }
  mathexpr_destroy(x);
}

TEST_F(NullHandles, ExportsReturningValuesGiveZeroOrNA) {
  int32_t low = -7, high = -7, low2 = -7, high2 = -7;
  const std::pair<const char*, uint32_t> rows[] = {
      {"is_error", mathexpr_is_error(nullptr)},
      {"is_void", mathexpr_is_void(nullptr)},
      {"is_symbol", mathexpr_is_symbol(nullptr)},
      {"is_number", mathexpr_is_number(nullptr)},
      {"is_numeric", mathexpr_is_numeric(nullptr)},
      {"get_children", static_cast<uint32_t>(mathexpr_get_children(nullptr))},
      {"get_priority", static_cast<uint32_t>(mathexpr_get_priority(nullptr))},
      {"is_constant", mathexpr_is_constant(nullptr, nullptr)},
      {"is_linear", mathexpr_is_linear(nullptr, nullptr)},
      {"irange1d", mathexpr_irange1d(nullptr, nullptr, &low, &high)},
      {"irange2d", mathexpr_irange2d(nullptr, nullptr, &low, &high, &low2, &high2)},
      {"next_child of NULL", mathexpr_next_child(nullptr)},
      {"symtable_add", mathsymtable_add(nullptr, "x", 1)},
      {"symtable_add_ex", mathsymtable_add_ex(nullptr, "x", 1, 0x40)},
  };
  for (const auto& [name, value] : rows) EXPECT_EQ(value, 0u) << name;
  EXPECT_EQ(low + high + low2 + high2, -28) << "no range was written";
  EXPECT_TRUE(std::isnan(mathexpr_as_number(nullptr)));

  int32_t nodes = -1;
  uint32_t attributes = 1, symbolBits = 1;
  mathexpr_get_attributes(nullptr, &nodes, &attributes, &symbolBits);
  EXPECT_EQ(nodes, 0);
  EXPECT_EQ(attributes | symbolBits, 0u);
}

TEST_F(NullHandles, ExportsThatChangeOrPrintDoNothingHarmful) {
  mathexpr* kept = mathexpr_create(nullptr, "1+2");
  mathexpr* empty = nullptr;
  mathexpr_assign(kept, nullptr);
  mathexpr_assign(nullptr, kept);
  mathexpr_evaluate(nullptr, 3);
  mathexpr_make_implicit(nullptr);
  EXPECT_EQ(mathexpr_next_child(&empty), 0u);
  EXPECT_EQ(empty, nullptr);
  mathsymtable_destroy(nullptr);
  mathexpr_evaluate(kept, 3);
  EXPECT_EQ(mathexpr_as_number(kept), 3.0) << "assigning NULL left the target as it was";
  mathexpr_destroy(kept);

  char buffer[8] = "xxxxxxx";
  int32_t length = -1;
  mathexpr_as_text(nullptr, buffer, sizeof buffer, &length, 0);
  EXPECT_EQ(length, 0);
  EXPECT_EQ(std::string(buffer), "");
}

}  // namespace
}  // namespace quillon::testing
