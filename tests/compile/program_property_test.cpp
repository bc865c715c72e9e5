// Property: the two numeric engines compute what the formula says. Random formulas, built with
// repeated parts so that @subexpr has temporaries to make, are computed at random points by
// @subexpr + mathexpr_stackeval and by the batch evaluator; both must agree with a direct
// evaluation of the parsed text (relative 1e-9), and with each other to the bit.
#include <gtest/gtest.h>

#include <cstring>

#include "quillon_program.h"
#include "support/expression_test.h"
#include "support/random_formulas.h"

namespace quillon::testing {
namespace {

constexpr int kRows = 7;

bool SameBits(double a, double b) {
  if (std::isnan(a) && std::isnan(b)) return true;  // payloads may differ with operand order
  return std::memcmp(&a, &b, sizeof a) == 0;
}

// A formula whose parts recur: a positive part p and any part a, used more than once.
std::string RepeatingFormula(ExpressionGenerator& generator, uint32_t seed) {
  const int depth = 1 + static_cast<int>(seed % 3);
  const std::string a = generator.Any(depth), p = generator.Positive(depth);
  switch (seed % 4) {
    case 0: return a;
    case 1: return "(" + a + ")*(" + p + ") + log(" + p + ")";
    case 2: return "(" + p + ")^(-2) - exp(-(" + p + ")) + (" + a + ")^2*(" + a + ")";
    default: return "{" + a + ", (" + p + ")^(1/2) + " + a + "}";
  }
}

class ProgramProperty : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    for (const char* series : {"x", "y", "z"}) mathsymtable_add(table, series, 15);
  }

  // Input columns of p from the rows of points, by the names the program gives its inputs.
  static std::vector<std::vector<double>> Columns(const quillon_program* p,
                                                  const std::vector<std::map<std::string, double>>& points) {
    std::vector<std::vector<double>> columns;
    for (int32_t i = 0; i < quillon_program_input_count(p); ++i) {
      char name[32] = {};
      quillon_program_input_name(p, i, name, sizeof name - 1, nullptr);
      auto& column = columns.emplace_back();
      for (const auto& point : points) column.push_back(point.at(name));
    }
    return columns;
  }
};

TEST_F(ProgramProperty, BothEnginesComputeTheFormulaAndAgreeToTheBit) {
  std::mt19937 pointRandom(11);
  std::uniform_real_distribution<double> coordinate(0.5, 2.0);
  int compared = 0;
  for (uint32_t seed = 1; seed <= 600; ++seed) {
    ExpressionGenerator generator(seed, {"x", "y", "z", "x(-1)", "y(2)"});
    const std::string text = RepeatingFormula(generator, seed);
    std::vector<std::map<std::string, double>> points(kRows);
    for (auto& point : points)
      for (const char* name : {"x", "y", "z", "x(-1)", "y(2)"}) point[name] = coordinate(pointRandom);

    mathexpr* original = mathexpr_create(table, text.c_str());
    ASSERT_FALSE(mathexpr_is_error(original)) << text;
    quillon_program* program = quillon_program_create(original);
    ASSERT_NE(program, nullptr) << text;
    const int32_t outputs = quillon_program_output_count(program);
    const std::vector<std::vector<double>> columns = Columns(program, points);
    std::vector<const double*> in;
    for (const auto& c : columns) in.push_back(c.data());
    std::vector<std::vector<double>> batch(static_cast<size_t>(outputs), std::vector<double>(kRows));
    std::vector<double*> out;
    for (auto& c : batch) out.push_back(c.data());
    ASSERT_EQ(quillon_program_evaluate(program, kRows, in.data(), out.data()), 0);

    mathexpr* prepared = mathexpr_create(table, ("@subexpr(" + text + ")").c_str());
    mathexpr_evaluate(prepared, 3);
    const bool isList = text[0] == '{';
    for (int row = 0; row < kRows; ++row) {
      std::vector<double> inputs, stack(512);
      for (const auto& c : columns) inputs.push_back(c[static_cast<size_t>(row)]);
      const int32_t cells = mathexpr_stackeval(prepared, stack.data(), inputs.data());
      ASSERT_GE(cells, outputs) << text;
      for (int32_t k = 0; k < outputs; ++k) {
        const double stacked = stack[static_cast<size_t>(cells - outputs + k)];
        const double batched = batch[static_cast<size_t>(k)][static_cast<size_t>(row)];
        EXPECT_TRUE(SameBits(stacked, batched)) << text << " output " << k << ": " << stacked << " vs " << batched;
        const ENode* item = isList ? ChildAt(RootOf(original), k) : RootOf(original);
        const double direct = ValueAt(item, points[static_cast<size_t>(row)]);
        if (!std::isfinite(direct) || std::fabs(direct) > 1e8) continue;
        EXPECT_TRUE(Close(direct, batched)) << text << " output " << k << ": " << direct << " vs " << batched;
        ++compared;
      }
    }
    mathexpr_destroy(prepared);
    quillon_program_destroy(program);
    mathexpr_destroy(original);
  }
  EXPECT_GT(compared, 2000);
}

}  // namespace
}  // namespace quillon::testing
