// Property: simplification keeps the value. Random expressions over + - * / ^ with small integer
// exponents, log and exp, are evaluated at random positive points before and after mode 3, and
// once more after printing and reading back the result. Only forms on which the rules keep the
// value are generated: variables are positive, exponents are small non-zero integers, and log
// takes only what is positive by construction.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "support/api_helpers.h"
#include "support/random_formulas.h"

namespace quillon::testing {
namespace {

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
