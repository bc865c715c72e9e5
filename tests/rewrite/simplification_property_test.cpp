// Property: simplification keeps the value. Random expressions over + - * / ^ with small integer
// exponents, log and exp, are evaluated at random positive points before and after mode 3, and
// once more after printing and reading back the result. Only forms on which the rules keep the
// value are generated: variables are positive, exponents are small non-zero integers, and log
// takes only what is positive by construction.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>

#include "support/api_helpers.h"
#include "support/tree_value.h"

namespace quillon::testing {
namespace {

class ExpressionGenerator {
 public:
  explicit ExpressionGenerator(uint32_t seed) : random_(seed) {}

  // Any expression: positive or not.
  std::string Any(int depth) {
    if (depth <= 0) return Leaf();
    switch (Pick(7)) {
      case 0: return "(" + Any(depth - 1) + " + " + Any(depth - 1) + ")";
      case 1: return "(" + Any(depth - 1) + " - " + Any(depth - 1) + ")";
      case 2: return "(" + Any(depth - 1) + " * " + Any(depth - 1) + ")";
      case 3: return "(" + Any(depth - 1) + " / " + Positive(depth - 1) + ")";
      case 4: return "(" + Positive(depth - 1) + ")^" + Exponent();
      case 5: return "log(" + Positive(depth - 1) + ")";
      default: return "-" + Any(depth - 1);
    }
  }

 private:
  // Positive at every positive point.
  std::string Positive(int depth) {
    if (depth <= 0) return Pick(3) == 0 ? std::to_string(1 + Pick(5)) : Variable();
    switch (Pick(5)) {
      case 0: return "(" + Positive(depth - 1) + " + " + Positive(depth - 1) + ")";
      case 1: return "(" + Positive(depth - 1) + " * " + Positive(depth - 1) + ")";
      case 2: return "(" + Positive(depth - 1) + " / " + Positive(depth - 1) + ")";
      case 3: return "exp(" + Small(depth - 1) + ")";
      default: return "(" + Positive(depth - 1) + ")^" + Exponent();
    }
  }
  // Of moderate size, for exp.
  std::string Small(int depth) { return depth <= 0 || Pick(2) == 0 ? Leaf() : "log(" + Positive(depth - 1) + ")"; }
  std::string Leaf() {
    switch (Pick(4)) {
      case 0: return std::to_string(static_cast<int>(Pick(9)) - 4);
      case 1: return std::to_string(1 + Pick(3)) + "/" + std::to_string(2 + Pick(3));
      default: return Variable();
    }
  }
  std::string Variable() { return std::string(1, "xyz"[Pick(3)]); }
  std::string Exponent() {
    const int e = static_cast<int>(Pick(6)) - 2;
    return e <= 0 ? "(" + std::to_string(e - 1) + ")" : std::to_string(e);
  }
  uint32_t Pick(uint32_t n) { return random_() % n; }

  std::mt19937 random_;
};

bool Close(double a, double b) {
  return std::fabs(a - b) <= 1e-9 * std::max({1.0, std::fabs(a), std::fabs(b)});
}

class SimplificationProperty : public NoLeakTest {};

TEST_F(SimplificationProperty, KeepsTheValueAtRandomPositivePoints) {
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  std::mt19937 pointRandom(7);
  std::uniform_real_distribution<double> coordinate(0.5, 2.0);
  int compared = 0;
  for (uint32_t seed = 1; seed <= 3000; ++seed) {
    ExpressionGenerator generator(seed);
    const std::string text = generator.Any(1 + seed % 4);
    mathexpr* original = mathexpr_create(table, text.c_str());
    mathexpr* simplified = mathexpr_create(table, text.c_str());
    mathexpr_evaluate(simplified, 3);
    int32_t length = 0;
    char printed[4096];
    mathexpr_as_text(simplified, printed, sizeof printed, &length, 0);
    ASSERT_LT(length, static_cast<int32_t>(sizeof printed)) << text;
    mathexpr* reread = mathexpr_create(table, printed);
    ASSERT_FALSE(mathexpr_is_error(reread)) << text << " printed as " << printed;
    for (int sample = 0; sample < 3; ++sample) {
      const std::map<std::string, double> point = {
          {"x", coordinate(pointRandom)}, {"y", coordinate(pointRandom)}, {"z", coordinate(pointRandom)}};
      const double before = ValueAt(RootOf(original), point);
      if (!std::isfinite(before) || std::fabs(before) > 1e8) continue;
      const double after = ValueAt(RootOf(simplified), point);
      const double again = ValueAt(RootOf(reread), point);
      EXPECT_TRUE(Close(before, after)) << text << " simplified to " << printed << ": " << before << " vs " << after;
      EXPECT_TRUE(Close(before, again)) << text << " read back from " << printed << ": " << before << " vs " << again;
      ++compared;
    }
    mathexpr_destroy(reread);
    mathexpr_destroy(simplified);
    mathexpr_destroy(original);
  }
  EXPECT_GT(compared, 5000);
  mathsymtable_destroy(table);
}

}  // namespace
}  // namespace quillon::testing
