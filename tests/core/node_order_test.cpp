// The order of sorted trees and the equality tests: rows of trees in sorted order (which never
// compare 0 across a row), the literal classes, the heap sort, and chains too deep for recursion.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "core/node_order.h"
#include "core/rational_node.h"
#include "core/real_node.h"
#include "support/api_helpers.h"

namespace quillon::testing {
namespace {

class NodeOrderTest : public NoLeakTest {
 protected:
  void SetUp() override {
    NoLeakTest::SetUp();
    table = mathsymtable_create(nullptr, 1);
    mathsymtable_add(table, "s", 15);
  }
  void TearDown() override {
    for (mathexpr* e : parsed) mathexpr_destroy(e);
    parsed.clear();
    mathsymtable_destroy(table);
    NoLeakTest::TearDown();
  }
  // The raw parsed tree of text; it lives until the end of the test.
  ENode* Tree(const std::string& text) {
    parsed.push_back(mathexpr_create(table, text.c_str()));
    return RootOf(parsed.back());
  }
  mathsymtable* table = nullptr;
  std::vector<mathexpr*> parsed;
};

TEST_F(NodeOrderTest, RowsAreStrictlyAscending) {
  const std::vector<std::vector<const char*>> rows = {
      {"TRUE", "1", "1.5", "\"s\"", "1995Q3", "x", "log(x)", "#1"},  // by class tag
      {"a", "B", "c"},                                                // names, case-blind
      {"x", "2*x", "3*x", "y"},           // products sort at their last factor, the plain one first
      {"a*x", "b*x"},                     // from the last child: x equal, then a against b
      {"x", "0+x", "2*x", "-x", "x^2", "y"},  // the looser function opens first
      {"s(1)", "s", "s(-1)", "s(-2)"},    // series: newest first
      {"x^3", "x^4", "y^2"},              // powers compare from the base
      {"b+a", "a+b"},                     // sums compare from the last term
      {"a-b", "a-c", "b-a"},              // no look-through: first child first
      {"exp(x)", "log(x)", "log(x,y)", "log(y)"},  // by name, then children; the shorter list first
      {"@sin(x)", "@sin[1](x)", "@sin[2](x)"},     // the derivative orders calls of one function
      {"#1", "#2", "#S1"},
  };
  for (const auto& row : rows) {
    for (size_t i = 0; i < row.size(); ++i) {
      EXPECT_EQ(NodeOrder(Tree(row[i]), Tree(row[i])), 0) << row[i];
      for (size_t j = i + 1; j < row.size(); ++j) {
        EXPECT_LT(NodeOrder(Tree(row[i]), Tree(row[j])), 0) << row[i] << " before " << row[j];
        EXPECT_GT(NodeOrder(Tree(row[j]), Tree(row[i])), 0) << row[j] << " after " << row[i];
      }
    }
  }
}

TEST_F(NodeOrderTest, LiteralClasses) {
  const double inf = std::numeric_limits<double>::infinity();
  ExprHandle two(new IntENode(2)), half(new RationalENode(1, 2)), halfUnreduced(new RationalENode(2, 4));
  ExprHandle realHalf(new RealENode(0.5)), nan(new RealENode(NA())), minusInf(new RealENode(-inf));
  ExprHandle one(new IntENode(1)), realOne(new RealENode(1.0));
  ExprHandle zero(new RealENode(0.0)), minusZero(new RealENode(-0.0));
  EXPECT_LT(NodeOrder(two.Root(), half.Root()), 0);
  EXPECT_LT(NodeOrder(half.Root(), realHalf.Root()), 0);
  EXPECT_LT(NodeOrder(nan.Root(), minusInf.Root()), 0);
  EXPECT_GT(NodeOrder(minusInf.Root(), nan.Root()), 0);
  EXPECT_EQ(NodeOrder(zero.Root(), minusZero.Root()), 0);
  EXPECT_TRUE(NodeEqual(zero.Root(), minusZero.Root()));

  // Different pairs of one value: 1 both ways, and never equal.
  EXPECT_EQ(NodeCompare(half.Root(), halfUnreduced.Root()), 1);
  EXPECT_EQ(NodeCompare(halfUnreduced.Root(), half.Root()), 1);
  EXPECT_FALSE(NodeEqual(half.Root(), halfUnreduced.Root()));

  EXPECT_FALSE(NodeEqual(one.Root(), realOne.Root()));
  EXPECT_LT(NodeOrder(one.Root(), realOne.Root()), 0);

  EXPECT_TRUE(RealEqual(NA(), std::nan("1")));
  EXPECT_FALSE(RealEqual(NA(), 0.0));
  EXPECT_TRUE(RealEqual(inf, inf));
}

TEST_F(NodeOrderTest, EqualityIsStructural) {
  EXPECT_TRUE(NodeEqual(Tree("s(-1)"), Tree("s(-1)")));
  EXPECT_FALSE(NodeEqual(Tree("s(-1)"), Tree("s(-2)")));
  EXPECT_FALSE(NodeEqual(Tree("a+b"), Tree("b+a")));
  EXPECT_FALSE(NodeEqual(Tree("log(x)"), Tree("log(x,y)")));

  ENode* xy = Tree("log(x,y)");
  ENode* xyAgain = Tree("exp(x,y)");
  ENode* xyz = Tree("log(x,y,z)");
  EXPECT_TRUE(TailEqual(xy->firstChild, xyAgain->firstChild));
  EXPECT_TRUE(TailEqualBackward(xy->lastChild, xyAgain->lastChild));
  EXPECT_FALSE(TailEqual(xy->firstChild, xyz->firstChild)) << "one chain longer";
  EXPECT_FALSE(TailEqualBackward(xy->lastChild, xyz->lastChild));
  EXPECT_TRUE(TailEqual(nullptr, nullptr));
  EXPECT_FALSE(TailEqual(xy->firstChild, nullptr));
}

TEST_F(NodeOrderTest, HeapSortGivesAscendingOrder) {
  struct Case {
    const char* list;
    const char* sorted;
  };
  const Case cases[] = {
      {"{}", "@list()"},
      {"{x}", "@list(x)"},
      {"{y, x^2, b*x, 3*x, x, 1, a*x, 2*x, x}", "@list(1,x,x,@times(2,x),@times(3,x),@times(a,x),@times(b,x),@pow(x,2),y)"},
      {"{c, b, a, a, b, c}", "@list(a,a,b,b,c,c)"},
  };
  for (const Case& c : cases) {
    ENode* list = Tree(c.list);
    std::vector<ENode*> nodes;
    for (ENode* item : Children(list)) nodes.push_back(item);
    HeapSortNodes(nodes.data(), static_cast<int32_t>(nodes.size()));
    for (ENode* item : nodes) item->Unlink();
    for (ENode* item : nodes) list->AppendChild(item);
    EXPECT_EQ(Dump(list), c.sorted) << c.list;
  }
}

// Left spines of 100,000 nodes: the order walks them without recursing.
TEST_F(NodeOrderTest, DeepChains) {
  constexpr int kTerms = 100000;
  auto chain = [](const char* first, const char* op, const char* term) {
    std::string text = first;
    for (int i = 0; i < kTerms; ++i) text += std::string(op) + term;
    return text;
  };
  ENode* sum = Tree(chain("x", "+", "x"));
  EXPECT_EQ(NodeOrder(sum, Tree(chain("x", "+", "x"))), 0);
  // The difference lies at the bottom of the spine.
  EXPECT_LT(NodeOrder(sum, Tree(chain("y", "+", "x"))), 0);
  EXPECT_GT(NodeOrder(Tree(chain("y", "+", "x")), sum), 0);
  EXPECT_GT(NodeOrder(sum, Tree("x")), 0);
  // A power opens at its base, so the look-through itself descends the whole spine.
  ENode* power = Tree(chain("x", "^", "2"));
  EXPECT_GT(NodeOrder(power, Tree("x")), 0);
  EXPECT_LT(NodeOrder(Tree("x"), power), 0);
  EXPECT_LT(NodeOrder(power, Tree("y")), 0);
}

}  // namespace
}  // namespace quillon::testing
