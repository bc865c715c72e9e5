// mathexpr_stackeval: the worked example cell by cell, the order in which sums and products
// combine, the special exponents of powers, the values of leaves and kernels, NA where a value
// is missing, and handles on children.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <numbers>
#include <thread>
#include <vector>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

constexpr uint64_t kNABits = 0xFFF8000000000000u;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Cells {
  int32_t cells;
  std::vector<double> stack;
};

// Evaluates text (after mathexpr_evaluate with mode, when mode is not 0) on a stack filled with
// a marker, so that a test sees which cells were written.
class StackEval : public ExpressionTest {
 protected:
  Cells Compute(const char* text, uint32_t mode, std::vector<double> inputs = {}) {
    mathexpr* e = mathexpr_create(table, text);
    if (mode != 0) mathexpr_evaluate(e, mode);
    Cells run{0, std::vector<double>(64, -12345.0)};
    inputs.resize(16, 0.0);
    run.cells = mathexpr_stackeval(e, run.stack.data(), inputs.data());
    mathexpr_destroy(e);
    return run;
  }
  double Value(const char* text, std::vector<double> inputs = {}) {
    const Cells run = Compute(text, 0, std::move(inputs));
    return run.stack[static_cast<size_t>(run.cells) - 1];
  }
};

TEST_F(StackEval, TheWorkedExampleLeavesTheTemporaryAndTheAnswer) {
  const Cells run = Compute("@subexpr(@pow(a+b,2) + log(a+b))", 3, {3.0, 1.0});
  ASSERT_EQ(run.cells, 2);
  EXPECT_EQ(run.stack[0], 4.0);
  EXPECT_EQ(run.stack[1], 16.0 + std::log(4.0));
  EXPECT_EQ(run.stack[2], std::log(4.0));  // the last value written above the result stays
}

TEST_F(StackEval, CellCountsOfLeavesListsAndTemporaries) {
  struct Row {
    const char* text;
    uint32_t mode;
    int32_t cells;
  };
  const Row rows[] = {
      {"2.5", 0, 1},
      {"@plus(#S0)", 0, 1},
      {"@list()", 0, 1},
      {"@subexpr({a+b, a*b, log(a+b)})", 3, 4},
      {"@subexpr(@pmax(exp(a), exp(a)))", 3, 2},
      {"{1, {2, 3}}", 0, 3},
  };
  for (const Row& row : rows) EXPECT_EQ(Compute(row.text, row.mode).cells, row.cells) << row.text;
}

// Inputs 1 and ±1e17 tell the orders apart: 1e17 + 1 rounds back to 1e17.
TEST_F(StackEval, SumsAndProductsCombineInTheFixedOrder) {
  struct Row {
    const char* text;
    std::vector<double> inputs;
    double expected;
  };
  const Row rows[] = {
      {"@plus(#S0, #S1)", {1, 2}, 3},
      // ((a2 + a1) + a0): left to right would give 0
      {"@plus(#S0, #S1, #S2)", {1, 1e17, -1e17}, 1},
      // ((a2 + a1) + a3 ... + a7) + a0: left to right would give 2.5
      {"@plus(#S0, #S1, #S2, #S3, #S3, #S3, #S3, #S3)", {1, 1e17, -1e17, 0.5}, 3.5},
      // Nine and more strictly from the left: the unrolled order would give 0
      {"@plus(#S0, #S1, #S2, #S3, #S3, #S3, #S3, #S3, #S3)", {1e17, 1, -1e17, 0.5}, 3},
      // ((a2 * a1) * a0) overflows; left to right would give 1e300
      {"@times(#S0, #S1, #S2)", {1e-300, 1e300, 1e300}, HUGE_VAL},
      // Nine from the left: the unrolled order would overflow
      {"@times(#S0, #S1, #S2, #S3, #S3, #S3, #S3, #S3, #S3)", {1e-300, 1e300, 1e300, 1}, 1e-300 * 1e300 * 1e300},
  };
  for (const Row& row : rows) EXPECT_EQ(Value(row.text, row.inputs), row.expected) << row.text;
}

// Exact tests on the exponent, then products and roots; the library power function for the rest.
TEST_F(StackEval, PowersUseProductsAndRootsForTheSpecialExponents) {
  const double b = 1.1;
  struct Row {
    const char* text;
    double expected;
  };
  const Row rows[] = {
      {"@pow(#S0, 2)", b * b},
      {"@pow(#S0, 3)", b * (b * b)},
      {"@pow(#S0, -1)", 1 / b},
      {"@pow(#S0, -2)", 1 / (b * b)},
      {"@pow(#S0, -3)", 1 / (b * b * b)},
      {"@pow(#S0, 4)", b * (b * b * b)},
      {"@pow(#S0, -4)", 1 / (b * b * b * b)},
      {"@pow(#S0, 1/2)", std::sqrt(b)},
      {"@pow(#S0, -0.5)", 1 / std::sqrt(b)},
      {"@pow(#S0, 2.5)", std::pow(b, 2.5)},
      {"@pow(#S0, 1/0)", std::pow(b, HUGE_VAL)},
  };
  for (const Row& row : rows) {
    // The exponent is folded to a number first, as preparation leaves it.
    const Cells run = Compute(row.text, 1, {b});
    EXPECT_EQ(std::bit_cast<uint64_t>(run.stack[0]), std::bit_cast<uint64_t>(row.expected)) << row.text;
  }
}

TEST_F(StackEval, MissingValuesAreNA) {
  const char* texts[] = {
      "x",                   // a symbol not prepared
      "\"text\"",            // a string
      "@pmax()",             // a function without arguments
      "@movav(#S0, 3)",      // a function without a numeric meaning
      "@sin(#S0, #S0)",      // a wrong number of arguments
      "@gamma[1](#S0)",      // a derivative notation
      "#A1",                 // a wildcard of another kind
      "@lt(#S0, #S1)",       // a comparison with a missing operand
      "@recode(#S1, 1, 2)",  // a missing condition
  };
  for (const char* text : texts)
    EXPECT_EQ(std::bit_cast<uint64_t>(Value(text, {1.0, kNaN})), kNABits) << text;
}

TEST_F(StackEval, RationalLeavesGiveInfinitiesAndNA) {
  EXPECT_EQ(Compute("1/0", 3).stack[0], HUGE_VAL);
  EXPECT_EQ(Compute("-1/0", 3).stack[0], -HUGE_VAL);
  EXPECT_EQ(std::bit_cast<uint64_t>(Compute("0/0", 3).stack[0]), kNABits);
  EXPECT_EQ(Compute("3/4", 3).stack[0], 0.75);
}

TEST_F(StackEval, KernelsOfTheCatalogue) {
  struct Row {
    const char* text;
    double expected;
  };
  const double x = 0.7;
  const Row rows[] = {
      {"@minus(#S0, 2)", x - 2},
      {"@divide(#S0, 2)", x / 2},
      {"-#S0", -x},
      {"@sqrt(#S0)", std::sqrt(x)},
      {"@logx(8, 2)", 3},
      {"@log10(1000)", 3},
      {"@atan(1)", std::numbers::pi / 4},
      {"@round(-2.5)", -3},
      {"@mod(-7, 3)", -1},
      {"@nan(#S1, 5)", 5},
      {"@isna(#S1)", 1},
      {"@pmax(1, #S0, 3, 2)", 3},
      {"@recode(#S0 > 0.5, 10, 20)", 10},
      {"#S0 >= 1 or not(#S0 = 0.7)", 0},
      {"#S0 < 1 and #S0 <> 0", 1},
      {"@gammalog(10)", std::log(362880.0)},
      {"@fact(5)", 120},
      {"@digamma(1)", -0.57721566490153286},
      {"@trigamma(1)", std::numbers::pi * std::numbers::pi / 6},
      {"@digamma(-0.5)", 0.03648997397857652},
      {"@beta(2, 3)", 1.0 / 12},
      {"@cnorm(0)", 0.5},
      {"@dnorm(0)", 1 / std::sqrt(2 * std::numbers::pi)},
      {"@qnorm(0.975)", 1.959963984540054},
      {"@qnorm(1e-10)", -6.3613409024040557},
      {"@qnorm(@cnorm(-1.3))", -1.3},
      {"@logit(0)", 0.5},
      {"@dlogistic(0)", 0.25},
      {"@qlogistic(@clogistic(2))", 2},
      {"@qextreme(@cextreme(-0.4))", -0.4},
      {"@powm1(1.5, 2)", 1.25},
  };
  for (const Row& row : rows) EXPECT_NEAR(Value(row.text, {x, kNaN}), row.expected, 1e-12) << row.text;
}

// A handle on a last child evaluates that child; a child with following siblings is evaluated
// alone rather than running on into its siblings.
TEST_F(StackEval, HandlesOnChildren) {
  mathexpr* e = mathexpr_create(table, "@pmax(@plus(#S0, 1), @times(#S0, 3))");
  mathexpr* child = mathexpr_first_child(e);
  const double inputs[] = {2.0};
  double stack[8];
  EXPECT_EQ(mathexpr_stackeval(child, stack, inputs), 1);
  EXPECT_EQ(stack[0], 3.0);
  ASSERT_TRUE(mathexpr_next_child(&child));
  EXPECT_EQ(mathexpr_stackeval(child, stack, inputs), 1);
  EXPECT_EQ(stack[0], 6.0);
  EXPECT_EQ(mathexpr_stackeval(nullptr, stack, inputs), 0);
  EXPECT_EQ(mathexpr_stackeval(e, nullptr, inputs), 0);
  mathexpr_destroy(child);
  mathexpr_destroy(e);
}

// The tree is only read, so threads may share one prepared expression, each with its own stack.
TEST_F(StackEval, ThreadsShareAPreparedExpression) {
  mathexpr* e = mathexpr_create(table, "@subexpr(@cnorm(a*b) + log(a*b) + @gammalog(a))");
  mathexpr_evaluate(e, 3);
  auto compute = [e](double a) {
    double stack[16];
    const double inputs[] = {a, 2.0};
    return stack[mathexpr_stackeval(e, stack, inputs) - 1];
  };
  std::vector<double> alone(400), together(400);
  for (size_t i = 0; i < alone.size(); ++i) alone[i] = compute(0.5 + 0.01 * static_cast<double>(i));
  std::vector<std::thread> threads;
  for (size_t t = 0; t < 4; ++t)
    threads.emplace_back([&, t] {
      for (size_t i = t; i < together.size(); i += 4) together[i] = compute(0.5 + 0.01 * static_cast<double>(i));
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(alone, together);
  mathexpr_destroy(e);
}

}  // namespace
}  // namespace quillon::testing
