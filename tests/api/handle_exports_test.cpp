// The handle exports as a host uses them: use counts through clone, assign and destroy, and
// walks over the children of a list while its parent lives.
#include <gtest/gtest.h>

#include <cmath>

#include "api/handle.h"
#include "core/bool_node.h"
#include "core/error_node.h"
#include "core/int_node.h"
#include "core/rational_node.h"
#include "core/void_node.h"
#include "core/well_known.h"
#include "quillon.h"
#include "support/test_trees.h"

namespace quillon::testing {
namespace {

class HandleExports : public NoLeakTest {
 protected:
  static void SetUpTestSuite() { quillon_init(); }
  static mathexpr* Host(ENode* node) { return ToHost(ExprHandle(node)); }
};

TEST_F(HandleExports, CloneSharesAndEitherHandleMayGoFirst) {
  mathexpr* e = Host(Int(5));
  mathexpr* copy = mathexpr_clone(e);
  EXPECT_EQ(RootOf(copy), RootOf(e));
  EXPECT_EQ(RootOf(e)->useCount, 2);
  mathexpr_destroy(e);
  EXPECT_EQ(mathexpr_as_number(copy), 5.0);
  mathexpr_destroy(copy);
  mathexpr_destroy(nullptr);
}

TEST_F(HandleExports, AssignMovesTheTargetToTheSourceTree) {
  mathexpr* target = Host(Int(1));
  mathexpr* source = Host(Int(2));
  mathexpr_assign(target, source);
  EXPECT_EQ(mathexpr_as_number(target), 2.0);
  EXPECT_EQ(RootOf(source)->useCount, 2);
  mathexpr_assign(target, target);
  EXPECT_EQ(RootOf(source)->useCount, 2) << "self-assignment keeps the count";
  mathexpr_destroy(source);
  mathexpr_destroy(target);
}

TEST_F(HandleExports, ClassTestsOfTheRoot) {
  struct Row {
    ENode* node;
    uint32_t isError, isVoid, isSymbol, isNumber;
  };
  Definitions defs;
  const Row rows[] = {
      {new VoidENode(), 0, 1, 0, 0},
      {new BoolENode(true), 0, 0, 0, 1},
      {new RationalENode(1, 3), 0, 0, 0, 1},
      {new ErrorENode(SharedText("bad")), 1, 0, 0, 0},
      {Sym(defs.Symbol("x")), 0, 0, 1, 0},
      {Call(fnPlus, Int(1), Int(2)), 0, 0, 0, 0},
  };
  for (const Row& row : rows) {
    mathexpr* e = Host(row.node);
    EXPECT_EQ(mathexpr_is_error(e), row.isError) << Dump(row.node);
    EXPECT_EQ(mathexpr_is_void(e), row.isVoid) << Dump(row.node);
    EXPECT_EQ(mathexpr_is_symbol(e), row.isSymbol) << Dump(row.node);
    EXPECT_EQ(mathexpr_is_number(e), row.isNumber) << Dump(row.node);
    EXPECT_EQ(mathexpr_get_children(e), 0) << "only lists have children for the host";
    mathexpr_destroy(e);
  }
}

TEST_F(HandleExports, AsNumberNeverEvaluates) {
  mathexpr* sum = Host(Call(fnPlus, Int(1), Int(2)));
  EXPECT_TRUE(IsNA(mathexpr_as_number(sum)));
  mathexpr_destroy(sum);
  mathexpr* truth = Host(new BoolENode(true));
  EXPECT_EQ(mathexpr_as_number(truth), 1.0);
  mathexpr_destroy(truth);
}

TEST_F(HandleExports, WalkOverAListWithThePairOfChildExports) {
  mathexpr* list = Host(Call(fnList, Int(10), Int(20), Int(30)));
  ASSERT_EQ(mathexpr_get_children(list), 3);
  double sum = 0;
  int32_t count = 0;
  mathexpr* child = mathexpr_first_child(list);
  do {
    sum += mathexpr_as_number(child);
    ++count;
  } while (mathexpr_next_child(&child));
  EXPECT_EQ(count, 3);
  EXPECT_EQ(sum, 60.0);
  EXPECT_TRUE(mathexpr_is_void(child));
  EXPECT_EQ(mathexpr_next_child(&child), 0u) << "a void handle stays as it is";
  EXPECT_TRUE(mathexpr_is_void(child));
  mathexpr_destroy(child);
  EXPECT_EQ(ChildAt(RootOf(list), 0)->useCount, 0) << "the walk gave back every use";
  mathexpr_destroy(list);
}

TEST_F(HandleExports, FirstChildOfALeafIsVoid) {
  mathexpr* leaf = Host(Int(3));
  mathexpr* child = mathexpr_first_child(leaf);
  EXPECT_TRUE(mathexpr_is_void(child));
  mathexpr_destroy(child);
  mathexpr_destroy(leaf);
}

}  // namespace
}  // namespace quillon::testing
