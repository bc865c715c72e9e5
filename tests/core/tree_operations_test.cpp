// Tree surgery and copies on small hand-made trees: the edge cases where links go wrong.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/expr_handle.h"
#include "core/node_order.h"
#include "core/rational_node.h"
#include "core/real_node.h"
#include "core/tree_walk.h"
#include "core/void_node.h"
#include "support/test_trees.h"

namespace quillon::testing {
namespace {

class TreeOperations : public NoLeakTest {
 protected:
  Definitions defs;
  FunctionDef* f = defs.Function("f");
  FunctionDef* g = defs.Function("g");
  FunctionDef* list = defs.Function("@list");
  SymbolDef* a = defs.Symbol("a");
  SymbolDef* b = defs.Symbol("b");
  SymbolDef* x = defs.Symbol("x", SymbolSeries);
};

TEST_F(TreeOperations, CloneUsesAFreeBindingOnceThenCopiesIt) {
  ExprHandle pattern(Call(f, Wild(1), Wild(1)));
  ENode* bound = Call(g, Sym(a));
  ENode* bindings[2] = {nullptr, bound};
  ExprHandle result(pattern.Root()->Clone(bindings));
  EXPECT_EQ(Dump(result.Root()), "f(g(a),g(a))");
  EXPECT_EQ(result.Root()->firstChild, bound) << "first use links the bound tree itself";
  EXPECT_NE(result.Root()->lastChild, bound);
  EXPECT_TRUE(LinksConsistent(result.Root()));
}

// What a bound tree holds is copied as it stands: its wildcards are not looked up again (a
// chain would go round for ever when #1 is bound to #1, or read beyond the bindings).
TEST_F(TreeOperations, CloneSubstitutesOnlyTheWildcardsOfTheCopiedTree) {
  const struct {
    ENode* pattern;
    ENode* bindings[3];
    const char* expected;
  } rows[] = {
      {Call(f, Wild(0, FlagHeld), Wild(1)), {Sym(b), Sym(a), nullptr}, "f(#0,a)"},  // held
      {Call(f, Wild(1), Wild(1)), {nullptr, Wild(1), nullptr}, "f(#1,#1)"},
      {Call(f, Wild(2), Wild(2)), {nullptr, nullptr, Call(g, Wild(7), Wild(2147483647))}, "f(g(#7,#2147483647),g(#7,#2147483647))"},
      {Call(f, Wild(2), Wild(5), Wild(-1)), {Sym(a), Sym(b), nullptr}, "f(#2,#5,#-1)"},  // unbound
  };
  for (const auto& row : rows) {
    ExprHandle pattern(row.pattern);
    ExprHandle result(pattern.Root()->Clone(row.bindings));
    EXPECT_EQ(Dump(result.Root()), row.expected);
    EXPECT_TRUE(LinksConsistent(result.Root()));
    for (ENode* bound : row.bindings)
      if (bound != nullptr && bound->parent == nullptr && bound->useCount == 0) bound->DestroyTree();
  }
}

// A free tree that a handle holds besides the bindings is copied: linked in, it would stand in
// two trees at once.
TEST_F(TreeOperations, CloneCopiesABoundTreeThatAHandleShares) {
  ExprHandle pattern(Call(f, Wild(0)));
  ExprHandle shared(Call(g, Sym(a)));
  ++shared.Root()->useCount;  // the bindings' own use
  ENode* bindings[1] = {shared.Root()};
  ExprHandle result(pattern.Root()->Clone(bindings));
  --shared.Root()->useCount;
  EXPECT_EQ(Dump(result.Root()), "f(g(a))");
  EXPECT_NE(result.Root()->firstChild, shared.Root());
  EXPECT_EQ(shared.Root()->parent, nullptr);
}

TEST_F(TreeOperations, CloneShiftedMovesOnlySeriesOutsideAggregates) {
  FunctionDef* mean = defs.Function("@mean", AttrAggregate);
  ExprHandle tree(Call(f, Sym(x, -1), Sym(a, 2), Call(mean, Sym(x))));
  ExprHandle shifted(tree.Root()->CloneShifted(-2));
  EXPECT_EQ(Dump(shifted.Root()), "f(x(-3),a(2),@mean(x))");
  tree.Root()->ShiftSymbols(1);
  EXPECT_EQ(Dump(tree.Root()), "f(x,a(2),@mean(x))");
  EXPECT_EQ(tree.Root()->firstChild->Hash(), SymbolENode(x, 0, -1).Hash()) << "hash follows the new index";
}

TEST_F(TreeOperations, SpliceOfLeafAndOfNodeWithChildren) {
  ExprHandle tree(Call(f, Sym(a), Call(g, Int(1), Int(2), Int(3)), Sym(b)));
  ENode* next = tree.Root()->firstChild->Splice();
  EXPECT_EQ(Dump(next), "g(1,2,3)");
  EXPECT_EQ(tree.Root()->childCount, 2);
  ENode* first = next->Splice();
  EXPECT_EQ(Dump(first), "1");
  EXPECT_EQ(Dump(tree.Root()), "f(1,2,3,b)");
  EXPECT_TRUE(LinksConsistent(tree.Root()));
}

TEST_F(TreeOperations, SwapPlacesOfNeighboursAndAcrossTrees) {
  ExprHandle one(Call(f, Sym(a), Sym(b), Int(1)));
  ExprHandle two(Call(g, Int(2)));
  one.Root()->firstChild->SwapPlaces(one.Root()->firstChild->next);
  EXPECT_EQ(Dump(one.Root()), "f(b,a,1)");
  one.Root()->lastChild->SwapPlaces(one.Root()->firstChild->next);
  EXPECT_EQ(Dump(one.Root()), "f(b,1,a)");
  one.Root()->firstChild->SwapPlaces(two.Root()->firstChild);
  EXPECT_EQ(Dump(one.Root()), "f(2,1,a)");
  EXPECT_EQ(Dump(two.Root()), "g(b)");
  EXPECT_TRUE(LinksConsistent(one.Root()) && LinksConsistent(two.Root()));
}

TEST_F(TreeOperations, ReplaceWithMayUseWhatItReplaces) {
  ExprHandle tree(Call(f, Call(g, Sym(a), Sym(b))));
  ENode* old = tree.Root()->firstChild;
  ExprHandle pattern(Call(f, Wild(0), Wild(0)));
  ENode* bindings[1] = {new VoidENode()};
  ENode* copy = old->ReplaceWith(pattern.Root(), bindings);
  EXPECT_EQ(Dump(tree.Root()), "f(f((void),(void)))");
  EXPECT_EQ(copy->parent, tree.Root());
  EXPECT_TRUE(LinksConsistent(tree.Root()));
}

TEST_F(TreeOperations, DistributeOverListAppliesTheParentToEachItem) {
  ExprHandle tree(Call(g, Call(f, Sym(a), Call(list, Int(1), Int(2), Int(3)))));
  tree.Root()->firstChild->lastChild->DistributeOverList();
  EXPECT_EQ(Dump(tree.Root()), "g(@list(f(a,1),f(a,2),f(a,3)))");
  EXPECT_TRUE(LinksConsistent(tree.Root()));

  ExprHandle empty(Call(g, Call(f, Call(list))));
  empty.Root()->firstChild->firstChild->DistributeOverList();
  EXPECT_EQ(Dump(empty.Root()), "g(@list())");
}

TEST_F(TreeOperations, SplitChildrenGroupsTheTwoRuns) {
  struct Row {
    int32_t k;
    bool keepSingle;
    const char* expected;
  };
  const Row rows[] = {
      {1, false, "f(f(1),f(2,3,4))"}, {1, true, "f(1,f(2,3,4))"}, {3, true, "f(f(1,2,3),4)"},
      {2, false, "f(f(1,2),f(3,4))"}, {0, false, "f(1,2,3,4)"},   {4, false, "f(1,2,3,4)"},
  };
  for (const Row& row : rows) {
    ExprHandle tree(Call(f, Int(1), Int(2), Int(3), Int(4)));
    tree.Root()->SplitChildren(row.k, row.keepSingle);
    EXPECT_EQ(Dump(tree.Root()), row.expected) << "k=" << row.k << " keepSingle=" << row.keepSingle;
    EXPECT_TRUE(LinksConsistent(tree.Root()));
  }
}

TEST_F(TreeOperations, HandlesKeepUsedChildrenAlive) {
  ENode* child;
  {
    ExprHandle root(Call(f, Call(g, Sym(a)), Sym(b)));
    child = root.Root()->firstChild;
    ExprHandle childHandle(child);
    root.Reset(new VoidENode());
    EXPECT_EQ(child->parent, nullptr) << "the child survives as a free tree";
    EXPECT_EQ(Dump(child), "g(a)");
  }
  ExprHandle tree(Call(f, Sym(a)));
  ENode* held = tree.Root()->firstChild;
  ++held->useCount;
  held->DestroyTree();
  EXPECT_EQ(tree.Root()->childCount, 0) << "DestroyTree on a used node only unlinks it";
  ExprHandle::Release(held);
}

TEST_F(TreeOperations, HandleBuilderCopiesTreesThatAreAlreadyLinked) {
  ExprHandle argument(Call(g, Sym(a)));
  ExprHandle twice(f, argument, argument);
  EXPECT_EQ(Dump(twice.Root()), "f(g(a),g(a))");
  EXPECT_EQ(twice.Root()->firstChild, argument.Root());
  ExprHandle inner(twice.Root()->lastChild);
  ExprHandle again(g, inner);
  EXPECT_NE(again.Root()->firstChild, inner.Root());
}

TEST_F(TreeOperations, TakeOrCloneCopiesOnlyWhenSharing) {
  ExprHandle tree(Call(f, Sym(a)));
  EXPECT_EQ(tree.TakeOrClone().Root(), tree.Root());
  EXPECT_EQ(tree.TakeOrCloneSingle().Root(), tree.Root());
  EXPECT_EQ(tree.TakeOrCloneDeep().Root(), tree.Root());
  ExprHandle second(tree);
  EXPECT_NE(tree.TakeOrCloneSingle().Root(), tree.Root());
  ExprHandle onlyOne(Call(f, Sym(a)));
  ExprHandle child(onlyOne.Root()->firstChild);
  EXPECT_EQ(onlyOne.TakeOrCloneSingle().Root(), onlyOne.Root());
  EXPECT_NE(onlyOne.TakeOrCloneDeep().Root(), onlyOne.Root());
  EXPECT_NE(child.TakeOrClone().Root(), child.Root());
}

TEST_F(TreeOperations, MarkSymbolUsersMarksSymbolsAndTheirAncestors) {
  ExprHandle tree(Call(f, Call(g, Sym(x, -3)), Call(g, Sym(a, 1)), Sym(b)));
  const SymbolRef wanted[] = {SymbolRef(x, 0, -1), SymbolRef(a, 2, -1)};
  EXPECT_TRUE(MarkSymbolUsers(tree.Root(), wanted, 2, 0x100, 0));
  std::string marked;
  for (ENode* n = tree.Root(); n != nullptr; n = NextInPreorder(n, tree.Root()))
    marked += n->flags == 0x100 ? '1' : '0';
  EXPECT_EQ(marked, "111000") << "x(-3) matches x by its series class; a(1) differs from a(2)";
  EXPECT_FALSE(MarkSymbolUsers(tree.Root()->lastChild, wanted, 2, 0x100, 0));
}

TEST_F(TreeOperations, FlagsByTypeTouchOnlyTheMaskedClasses) {
  ExprHandle tree(Call(f, Sym(a), Int(1), Call(g, Sym(b))));
  tree.Root()->SetFlagsByType(FunctionType | SymbolType, 0x20);
  std::string flagged;
  for (ENode* n = tree.Root(); n != nullptr; n = NextInPreorder(n, tree.Root()))
    flagged += (n->flags & 0x20) != 0 ? '1' : '0';
  EXPECT_EQ(flagged, "11011");
  tree.Root()->ClearFlagsByType(SymbolType, 0x20);
  EXPECT_EQ(tree.Root()->firstChild->flags & 0x20, 0u);
  EXPECT_NE(tree.Root()->flags & 0x20, 0u);
}

TEST(NodeValues, SpecialValuesOfLiterals) {
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(IsNA(RationalENode(0, 0).GetValue()));
  EXPECT_EQ(RationalENode(-3, 0).GetValue(), -inf);
  EXPECT_EQ(RationalENode(3, 0).GetValue(), inf);
  EXPECT_FALSE(RealENode(std::nan("")).IsNegative());
  EXPECT_TRUE(RealENode(-inf).IsNegative());
  EXPECT_EQ(RealENode(0.0).Hash(), RealENode(-0.0).Hash());
  EXPECT_NE(RealENode(std::nan("1")).Hash(), RealENode(NA()).Hash());
  IntENode smallest(INT32_MIN);
  smallest.Negate();
  EXPECT_EQ(smallest.value, INT32_MIN) << "32-bit negation wraps";
}

TEST(NodeValues, PrintOfEachLiteralClass) {
  Definitions defs;
  SymbolDef* m = defs.Symbol("m");
  struct Row {
    ENode* node;
    const char* text;
  };
  const Row rows[] = {
      {new VoidENode(), "(void)"},
      {new RationalENode(1, 2), "(1/2)"},
      {new RationalENode(-1, 0), "-@Inf"},
      {new RationalENode(2, 0), "NA"},
      {new RealENode(0.1), "0.10000000000000001"},
      {new RealENode(-std::numeric_limits<double>::infinity()), "-@Inf"},
      {new RealENode(NA()), "NA"},
      {Sym(m, 0, -1), "m"},
      {Sym(m, -1, -1), "m(-1)"},
      {Sym(m, 1, 2), "m(1,2)"},
      {new WildcardENode(12, 'S'), "#S12"},
  };
  for (const Row& row : rows) {
    EXPECT_STREQ(row.node->Print().c_str(), row.text);
    delete row.node;
  }
}

}  // namespace
}  // namespace quillon::testing
