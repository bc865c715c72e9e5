// Trees a million levels deep: every whole-tree operation must walk them without recursion.
#include <gtest/gtest.h>

#include "core/expr_handle.h"
#include "core/node_order.h"
#include "core/tree_walk.h"
#include "support/test_trees.h"

namespace quillon::testing {
namespace {

constexpr int32_t kDepth = 1000000;

class DeepTree : public NoLeakTest {
 protected:
  // f(f(f(...f(x(-1), 7)..., 7), 7), 7): a left spine of kDepth function nodes.
  ENode* MakeChain() {
    ENode* node = Sym(x, -1);
    for (int32_t i = 0; i < kDepth; ++i) node = Call(f, node, Int(7));
    return node;
  }
  Definitions defs;
  FunctionDef* f = defs.Function("f");
  SymbolDef* x = defs.Symbol("x", SymbolSeries);
};

TEST_F(DeepTree, CloneHashEqualityFlagsAndDestroy) {
  ExprHandle original(MakeChain());
  ExprHandle copy(original.Root()->Clone());
  EXPECT_EQ(CountNodes(copy.Root()), 2 * kDepth + 1);
  EXPECT_TRUE(NodeEqual(original.Root(), copy.Root()));
  EXPECT_EQ(TreeHash(original.Root()), TreeHash(copy.Root()));

  copy.Root()->ShiftSymbols(-1);
  EXPECT_FALSE(NodeEqual(original.Root(), copy.Root()));
  ExprHandle shifted(original.Root()->CloneShifted(-1));
  EXPECT_TRUE(NodeEqual(shifted.Root(), copy.Root()));

  original.Root()->SetFlagsByType(FunctionType, FlagSettled);
  original.Root()->ClearFlagsByType(FunctionType | IntType, FlagSettled);
  EXPECT_EQ(original.Root()->flags & FlagSettled, 0u);
  const SymbolRef wanted[] = {SymbolRef(x, 0, -1)};
  EXPECT_TRUE(MarkSymbolUsers(original.Root(), wanted, 1, 0x10000, 0xFFFF));
  EXPECT_EQ(original.Root()->flags, 0x10000u);
}

TEST_F(DeepTree, ReleasingTheRootFreesTheChain) {
  const int64_t before = LiveNodeCount();
  { ExprHandle chain(MakeChain()); }
  EXPECT_EQ(LiveNodeCount(), before);
}

}  // namespace
}  // namespace quillon::testing
