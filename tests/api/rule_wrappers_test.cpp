// The rule wrappers as a host calls them: arguments are copied, a call that no rule answers
// comes back unevaluated, and the result readers never misread such an answer.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

class RuleWrappers : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    f = mathexpr_create(table, "log(x)");
    x = mathexpr_create(table, "x");
  }
  void TearDown() override {
    mathexpr_destroy(f);
    mathexpr_destroy(x);
    ExpressionTest::TearDown();
  }
  // The structure of a wrapper's answer; the answer is destroyed.
  static std::string Answer(mathexpr* e) {
    std::string s = Structure(e);
    mathexpr_destroy(e);
    return s;
  }
  mathexpr* f = nullptr;
  mathexpr* x = nullptr;
};

TEST_F(RuleWrappers, UnansweredCallsComeBackAsCallsOnCopies) {
  EXPECT_EQ(Answer(mathexpr_taylor(f, x, x, 2)), "@taylor(log(x),x,x,2)");
  EXPECT_EQ(Answer(mathexpr_symlist(f, 36)), "@SymList(log(x),36)");
  EXPECT_EQ(Answer(mathexpr_find(f, x, 1)), "@find(log(x),x,TRUE)");
  EXPECT_EQ(Answer(mathexpr_distinct(x)), "@union(x)");
  EXPECT_EQ(Structure(f), "log(x)") << "the host's trees stay as they were";
}

TEST_F(RuleWrappers, ReadersTreatAnUnansweredCallAsNo) {
  EXPECT_EQ(mathexpr_is_constant(f, x), 0u);
  EXPECT_EQ(mathexpr_is_linear(f, x), 0u);
  int32_t low = 7, high = 8, low2 = 9, high2 = 10;
  EXPECT_EQ(mathexpr_irange1d(f, x, &low, &high), 0u);
  EXPECT_EQ(mathexpr_irange2d(f, x, &low, &high, &low2, &high2), 0u);
  EXPECT_EQ(low + high + low2 + high2, 34) << "outputs are left alone";
}

TEST_F(RuleWrappers, MakeImplicitWorksInPlace) {
  mathexpr* equation = mathexpr_create(table, "y := log(x)");
  mathexpr* other = mathexpr_clone(equation);
  mathexpr_make_implicit(equation);
  EXPECT_EQ(Structure(equation), "@plus(y,@times(-1,log(x)))");
  EXPECT_EQ(Structure(other), "@assign(y,log(x))") << "a shared root is copied, not taken";
  mathexpr_destroy(other);
  mathexpr_destroy(equation);
}

}  // namespace
}  // namespace quillon::testing
