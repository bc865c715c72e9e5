// The driver through its stages: flattening, the canonical and middle stages, numeric mode,
// error hoisting, modes without rules, and handles that follow a replaced root.
#include <gtest/gtest.h>

#include "core/error_node.h"
#include "core/well_known.h"
#include "rewrite/driver.h"
#include "support/expression_test.h"

namespace quillon::testing {
namespace {

using Driver = ExpressionTest;

TEST_F(Driver, StagesAndModes) {
  const StructureRow rows[] = {
      {"@plus(@plus(a, b), @plus(c, @plus(g, e)))", 1, "@plus(a,b,c,e,g)"},
      {"e + (g + c) + (b + a)", 1, "@plus(a,b,c,e,g)"},
      {"a - b/c", 2, "@plus(a,@times(-1,@times(b,@pow(c,-1))))"},
      {"a - b/c", 1, "@minus(a,@divide(b,c))"},
      {"@N(1/3)", 3, "0.33333333333333331"},
      {"1/3", 3, "(1/3)"},
      {"@N(1/3)", 2, "@N(@times(1,@pow(3,-1)))"},
      {"@N(x)", 1, "x"},
      {"b + a", 0x8, "@plus(b,a)"},
      {"b + a", 0, "@plus(b,a)"},
      {"@flatten(a + b, 1)", 0x100000, "@flatten(@plus(a,b),1)"},
      {"2*@expand((a+b)*c)", 3, "@times(2,@plus(@times(a,c),@times(b,c)))"},
  };
  ExpectStructures(rows);
}

TEST_F(Driver, TheFirstErrorRisesToTheRoot) {
  Definitions defs;
  SymbolDef* a = defs.Symbol("a");
  ExprHandle tree(Call(fnLog, Call(fnPlus, Sym(a), new ErrorENode(SharedText("first")),
                                   Call(fnExp, new ErrorENode(SharedText("second"))))));
  Evaluate(tree, 3);
  EXPECT_EQ(Dump(tree.Root()), "<\"first\">");
  EXPECT_NE(tree.Root()->flags & FlagSettled, 0u);
}

TEST_F(Driver, HandlesFollowAReplacedRoot) {
  mathexpr* e = mathexpr_create(table, "a + a");
  mathexpr* shared = mathexpr_clone(e);
  mathexpr_evaluate(shared, 3);
  EXPECT_EQ(Structure(shared), "@times(2,a)");
  mathexpr_destroy(e);
  mathexpr_destroy(shared);
  mathexpr* number = mathexpr_create(table, "1 + 2");
  mathexpr_evaluate(number, 3);
  EXPECT_EQ(mathexpr_as_number(number), 3.0);
  mathexpr_destroy(number);
}

TEST_F(Driver, ALongUnflattenedChainIsRewrittenWithoutRecursion) {
  std::string text = "x0";
  for (int i = 1; i < 100000; ++i) text += " - x" + std::to_string(i % 50);
  mathexpr* e = mathexpr_create(table, text.c_str());
  mathexpr_evaluate(e, 3);
  int32_t nodes = 0;
  uint32_t attributes = 0, symbols = 0;
  mathexpr_get_attributes(e, &nodes, &attributes, &symbols);
  EXPECT_LT(nodes, 200) << "like terms collect into one term per symbol";
  mathexpr_destroy(e);
}

}  // namespace
}  // namespace quillon::testing
