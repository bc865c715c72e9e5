// The batch evaluator through its C interface: values of prepared and plain formulas, the order
// of operations, the special exponents, NA leaves, inputs and outputs, blocks and bad arguments.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <thread>
#include <vector>

#include "compile/program_preparation.h"
#include "quillon_program.h"
#include "support/expression_test.h"

namespace quillon::testing {
namespace {

uint64_t Bits(double v) {
  uint64_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  return bits;
}

constexpr uint64_t kNABits = 0xFFF8000000000000ull;

class ProgramTest : public ExpressionTest {
 protected:
  quillon_program* Compile(const char* text) {
    mathexpr* e = mathexpr_create(table, text);
    quillon_program* p = quillon_program_create(e);
    mathexpr_destroy(e);
    return p;
  }

  // Output k of text's program over the rows of columns (one vector per input).
  std::vector<std::vector<double>> Run(const char* text, const std::vector<std::vector<double>>& columns) {
    quillon_program* p = Compile(text);
    EXPECT_NE(p, nullptr) << text;
    if (p == nullptr) return {};
    EXPECT_EQ(quillon_program_input_count(p), static_cast<int32_t>(columns.size())) << text;
    const size_t rows = columns.empty() ? 1 : columns[0].size();
    std::vector<const double*> in;
    for (const auto& c : columns) in.push_back(c.data());
    std::vector<std::vector<double>> out(static_cast<size_t>(quillon_program_output_count(p)),
                                         std::vector<double>(rows));
    std::vector<double*> outPointers;
    for (auto& c : out) outPointers.push_back(c.data());
    EXPECT_EQ(quillon_program_evaluate(p, static_cast<int64_t>(rows), in.data(), outPointers.data()), 0);
    quillon_program_destroy(p);
    return out;
  }

  double One(const char* text, const std::vector<double>& inputs) {
    std::vector<std::vector<double>> columns;
    for (double v : inputs) columns.push_back({v});
    const auto out = Run(text, columns);
    return out.size() == 1 ? out[0][0] : -12345.0;
  }

  std::string InputName(quillon_program* p, int32_t i) {
    char buffer[64] = {};
    int32_t length = -1;
    quillon_program_input_name(p, i, buffer, sizeof buffer, &length);
    return std::string(buffer, static_cast<size_t>(length));
  }
};

struct ValueRow {
  const char* text;
  std::vector<double> inputs;
  double expected;
};

// Prepared forms run as they stand; values are built in the same order of operations, so they
// must agree to the bit.
TEST_F(ProgramTest, PreparedFormsGiveTheStackEvaluatorsValues) {
  const double a = 1.0, big = 1e16;
  const double x = 1.7;
  const ValueRow rows[] = {
      // the worked example: #T0 = 3 + 1, then #T0^2 + log(#T0)
      {"@sublist({#S0+#S1}, #T0^2 + log(#T0))", {3.0, 1.0}, 16.0 + std::log(4.0)},
      // three to eight terms: ((a2 + a1) + a3 ...) + a0, which cancels the big ones first
      {"@plus(#S0, #S1, #S2)", {a, big, -big}, 1.0},
      {"@plus(#S0, #S1, #S2, #S3, #S4, #S5, #S6, #S7)", {a, big, -big, 0, 0, 0, 0, 0}, 1.0},
      // above eight: left to right, so a0 + a1 loses a0
      {"@plus(#S0, #S1, #S2, #S3, #S4, #S5, #S6, #S7, #S8)", {a, big, -big, 0, 0, 0, 0, 0, 0}, 0.0},
      {"@times(#S0, #S1, #S2)", {1e300, 1e300, 1e-300}, (1e-300 * 1e300) * 1e300},
      {"@times(#S0, #S1, #S2, #S3, #S4, #S5, #S6, #S7, #S8)", {1e300, 1e300, 1e-300, 1, 1, 1, 1, 1, 1},
       INFINITY},
      {"@plus(#S0)", {x}, x},
      {"exp(#S0) + log(#S1, #S0)", {x, 2.0}, std::log(2.0) + std::exp(x)},
  };
  for (const ValueRow& row : rows)
    EXPECT_EQ(Bits(One(row.text, row.inputs)), Bits(row.expected)) << row.text;
}

// Each exponent of the table, as a constant (an instruction of its own) and as an input (the
// table tested per observation); any other goes to the library power.
TEST_F(ProgramTest, PowersTakeTheTableOfSpecialExponents) {
  const double b = 1.7;
  // The platform's pow at run time: a call the compiler folds is rounded correctly, which the
  // pow of some platforms is not.
  volatile double five = 5.0, third = 1.0 / 3.0;
  const struct {
    const char* text;
    double exponent;
    double expected;
  } rows[] = {
      {"x^2", 2, b * b},
      {"x^3", 3, b * (b * b)},
      {"x^(-1)", -1, 1.0 / b},
      {"x^(-2)", -2, 1.0 / (b * b)},
      {"x^(-3)", -3, 1.0 / (b * b * b)},
      {"x^4", 4, b * (b * b * b)},
      {"x^(-4)", -4, 1.0 / (b * b * b * b)},
      {"x^(1/2)", 0.5, std::sqrt(b)},
      {"x^(-1/2)", -0.5, 1.0 / std::sqrt(b)},
      {"x^5", 5, std::pow(b, five)},
      {"x^(1/3)", 1.0 / 3.0, std::pow(b, third)},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Bits(One(row.text, {b})), Bits(row.expected)) << row.text;
    EXPECT_EQ(Bits(One("#S0^#S1", {b, row.exponent})), Bits(row.expected)) << row.exponent;
  }
}

// A list inside an argument leaves all its cells: the sum takes the last two of three.
TEST_F(ProgramTest, AListInsideAnArgumentShiftsTheCells) {
  const auto out = Run("@plus(#S0, {#S1, #S0})", {{2.0}, {5.0}});
  ASSERT_EQ(out.size(), 2u);
  EXPECT_EQ(out[0][0], 2.0);
  EXPECT_EQ(out[1][0], 7.0);
}

TEST_F(ProgramTest, LeavesWithoutANumberAndFunctionsWithoutAKernelGiveNA) {
  const char* texts[] = {
      "#S0 + \"text\"", "#S0 + @list()", "#S0 + #Q0", "#S0 + #T5", "#S0 + @mean(#S0)",
      "#S0 + #S2000000",  // no host has such a column: no input, no array of that size
      "#S0 + @sqrt(#S0, #S0)",  // a call with the wrong number of arguments
  };
  for (const char* text : texts) EXPECT_EQ(Bits(One(text, {1.0})), kNABits) << text;
}

TEST_F(ProgramTest, PlainFormulasAreSimplifiedAndPreparedFirst) {
  EXPECT_EQ(One("x*y/x + y^2 + x", {2.0, 3.0}), 3.0 + 9.0 + 2.0);
  const auto out = Run("{x + y, x*y, 5}", {{1.0, 2.0}, {10.0, 20.0}});
  ASSERT_EQ(out.size(), 3u);
  EXPECT_EQ(out[0], (std::vector<double>{11.0, 22.0}));
  EXPECT_EQ(out[1], (std::vector<double>{10.0, 40.0}));
  EXPECT_EQ(out[2], (std::vector<double>{5.0, 5.0}));
}

TEST_F(ProgramTest, InputsAreNamedInSlotOrder) {
  // series first, newest lag first; then a matrix
  mathsymtable_add(table, "x", 15);
  mathsymtable_add(table, "y", 15);
  mathsymtable_add(table, "m", 40);
  quillon_program* p = Compile("y + x(-1) + m(1,2) + X + y(1)");
  ASSERT_NE(p, nullptr);
  ASSERT_EQ(quillon_program_input_count(p), 5);
  const char* expected[] = {"x", "x(-1)", "y(1)", "y", "m(1,2)"};
  for (int32_t i = 0; i < 5; ++i) EXPECT_EQ(InputName(p, i), expected[i]) << i;
  // a short buffer is filled without a terminator and the full length still comes back
  char small[3] = {'?', '?', '?'};
  int32_t length = 0;
  EXPECT_EQ(quillon_program_input_name(p, 4, small, 3, &length), 1);
  EXPECT_EQ(length, 6);
  EXPECT_EQ(std::string(small, 3), "m(1");
  EXPECT_EQ(quillon_program_input_name(p, 5, small, 3, &length), 0);
  EXPECT_EQ(length, 0);
  quillon_program_destroy(p);
}

// Rows on both sides of block boundaries, and a last block that is short.
TEST_F(ProgramTest, EveryRowOfEveryBlockIsComputed) {
  for (int64_t count : {1, 255, 256, 257, 1000}) {
    std::vector<double> x(static_cast<size_t>(count)), y(x.size());
    for (size_t i = 0; i < x.size(); ++i) {
      x[i] = 0.5 + static_cast<double>(i);
      y[i] = 1.0 / (1.0 + static_cast<double>(i));
    }
    const auto out = Run("log(x)*y + (x + y)^2 - 3*(x + y)", {x, y});
    ASSERT_EQ(out.size(), 1u);
    for (size_t i = 0; i < x.size(); ++i) {
      const double s = x[i] + y[i];
      ASSERT_NEAR(out[0][i], std::log(x[i]) * y[i] + s * s - 3 * s, 1e-9 * (1 + s * s)) << count << " row " << i;
    }
  }
}

// Each block is read before it is written, so a host may write the results over an input.
TEST_F(ProgramTest, AnOutputMayBeAnInputColumn) {
  quillon_program* p = Compile("x^2 + y");
  ASSERT_NE(p, nullptr);
  std::vector<double> x(1000), y(1000, 0.5);
  for (size_t i = 0; i < x.size(); ++i) x[i] = static_cast<double>(i);
  const double* in[] = {x.data(), y.data()};
  double* out[] = {x.data()};
  ASSERT_EQ(quillon_program_evaluate(p, 1000, in, out), 0);
  for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(x[i], static_cast<double>(i * i) + 0.5) << i;
  quillon_program_destroy(p);
}

TEST_F(ProgramTest, ThreadsShareOneProgram) {
  quillon_program* p = Compile("exp(-x)*(x^3 + 2*x) + x^(1/2)");
  ASSERT_NE(p, nullptr);
  constexpr int64_t kRows = 5000;
  std::vector<double> x(kRows), alone(kRows), first(kRows), second(kRows);
  for (int64_t i = 0; i < kRows; ++i) x[static_cast<size_t>(i)] = 0.001 * static_cast<double>(i);
  const double* in[] = {x.data()};
  const auto run = [&](std::vector<double>& out) {
    double* o[] = {out.data()};
    EXPECT_EQ(quillon_program_evaluate(p, kRows, in, o), 0);
  };
  run(alone);
  std::thread a([&] { run(first); });
  std::thread b([&] { run(second); });
  a.join();
  b.join();
  EXPECT_EQ(first, alone);
  EXPECT_EQ(second, alone);
  quillon_program_destroy(p);
}

// Constant exponents of the table and constant operands get instructions of their own, a
// product read only by a sum (and a reciprocal read only by a product) is fused into its
// reader, and a register is reused once its value is read
// for the last time.
TEST_F(ProgramTest, CompilesToSpecialisedInstructions) {
  mathexpr* e = mathexpr_create(table, "(1 + 2*x + 3*x^2)/(1 - x + x^3)");
  const std::unique_ptr<Program> p = PrepareProgram(RootOf(e));
  mathexpr_destroy(e);
  // constants: c0 = 1, c1 = 2, c2 = 3, c3 = -1
  EXPECT_EQ(ListProgram(*p),
            "r0 = multiply_constant s0, c1\n"
            "r1 = square s0\n"
            "r2 = multiply_constant_add r1, c2, r0\n"
            "r1 = add_constant r2, c0\n"
            "r2 = cube s0\n"
            "r0 = multiply_constant_add s0, c3, r2\n"
            "r2 = add_constant r0, c0\n"
            "r0 = reciprocal_multiply r2, r1\n"
            "out r0\n");
}

TEST_F(ProgramTest, BadArgumentsGiveNeutralResults) {
  EXPECT_EQ(quillon_program_create(nullptr), nullptr);
  EXPECT_EQ(Compile("1 +"), nullptr);
  EXPECT_EQ(quillon_program_input_count(nullptr), 0);
  EXPECT_EQ(quillon_program_output_count(nullptr), 0);
  int32_t length = 7;
  EXPECT_EQ(quillon_program_input_name(nullptr, 0, nullptr, 0, &length), 0);
  EXPECT_EQ(length, 0);
  quillon_program_destroy(nullptr);

  quillon_program* p = Compile("x + y");
  ASSERT_NE(p, nullptr);
  double x = 1, out = -1;
  const double* oneInput[] = {&x, nullptr};
  double* outputs[] = {&out};
  EXPECT_EQ(quillon_program_evaluate(nullptr, 1, oneInput, outputs), 1);
  EXPECT_EQ(quillon_program_evaluate(p, -1, oneInput, outputs), 1);
  EXPECT_EQ(quillon_program_evaluate(p, 1, oneInput, outputs), 1);
  EXPECT_EQ(quillon_program_evaluate(p, 1, nullptr, outputs), 1);
  EXPECT_EQ(quillon_program_evaluate(p, 0, nullptr, nullptr), 0);
  EXPECT_EQ(out, -1);
  quillon_program_destroy(p);
}

}  // namespace
}  // namespace quillon::testing
