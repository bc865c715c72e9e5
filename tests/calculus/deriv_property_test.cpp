// Properties of differentiation. For random formulas over + - * / ^, log, exp, @sqrt, @sin and
// @cos, the printed derivative, read back and evaluated at random points, agrees with a central
// finite difference of the formula; and each element of a gradient by list is the derivative
// by that variable alone. Logarithms, roots and divisions take only what is positive by
// construction, so every formula is smooth where it is evaluated.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>

#include "core/node_order.h"
#include "support/expression_test.h"
#include "support/random_formulas.h"
#include "support/tree_value.h"

namespace quillon::testing {
namespace {

class SmoothFormulas : public RandomText {
 public:
  explicit SmoothFormulas(uint32_t seed) : RandomText(seed) {}

  std::string Any(int depth) {
    if (depth <= 0) return Leaf();
    switch (Pick(9)) {
      case 0: return "(" + Any(depth - 1) + " + " + Any(depth - 1) + ")";
      case 1: return "(" + Any(depth - 1) + " - " + Any(depth - 1) + ")";
      case 2: return "(" + Any(depth - 1) + " * " + Any(depth - 1) + ")";
      case 3: return "(" + Any(depth - 1) + " / " + Positive(depth - 1) + ")";
      case 4: return "(" + Positive(depth - 1) + ")^" + Exponent();
      case 5: return "log(" + Positive(depth - 1) + ")";
      case 6: return "@sin(" + Any(depth - 1) + ")";
      case 7: return "@cos(" + Any(depth - 1) + ")";
      default: return "exp(" + Bounded(depth - 1) + ")";
    }
  }

 private:
  // Positive, and away from 0, at every point of [0.5, 2]^3.
  std::string Positive(int depth) {
    if (depth <= 0) return Pick(3) == 0 ? std::to_string(1 + Pick(5)) : Variable();
    switch (Pick(6)) {
      case 0: return "(" + Positive(depth - 1) + " + " + Positive(depth - 1) + ")";
      case 1: return "(" + Positive(depth - 1) + " * " + Positive(depth - 1) + ")";
      case 2: return "(" + Positive(depth - 1) + " / " + Positive(depth - 1) + ")";
      case 3: return "@sqrt(" + Positive(depth - 1) + ")";
      case 4: return "(2 + @sin(" + Any(depth - 1) + "))";
      default: return "exp(" + Bounded(depth - 1) + ")";
    }
  }
  std::string Bounded(int depth) {
    return depth <= 0 || Pick(2) == 0 ? Leaf() : "@cos(" + Any(depth - 1) + ")";
  }
  std::string Leaf() { return Pick(4) == 0 ? std::to_string(static_cast<int>(Pick(7)) - 3) : Variable(); }
  std::string Variable() { return std::string(1, "xyz"[Pick(3)]); }
};

// The central difference of f in variable at point, with step h.
double CentralDifference(const ENode* f, std::map<std::string, double> point, const std::string& variable, double h) {
  const double at = point[variable];
  point[variable] = at + h;
  const double above = ValueAt(f, point);
  point[variable] = at - h;
  return (above - ValueAt(f, point)) / (2 * h);
}

// The fixture's table adds every name it meets.
class DerivProperty : public ExpressionTest {};

TEST_F(DerivProperty, PrintedDerivativeAgreesWithFiniteDifferences) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> coordinate(0.5, 2.0);
  int compared = 0;
  for (uint32_t seed = 1; seed <= 3000; ++seed) {
    const std::string text = SmoothFormulas(seed).Any(1 + seed % 4);
    const std::string variable(1, "xyz"[seed % 3]);
    mathexpr* f = mathexpr_create(table, text.c_str());
    mathexpr* x = mathexpr_create(table, variable.c_str());
    mathexpr* derivative = mathexpr_deriv(f, x);
    const std::string printed = Text(derivative);
    mathexpr* reread = mathexpr_create(table, printed.c_str());
    ASSERT_FALSE(mathexpr_is_error(reread)) << text << " gave " << printed;
    for (int sample = 0; sample < 2; ++sample) {
      const std::map<std::string, double> point = {
          {"x", coordinate(random)}, {"y", coordinate(random)}, {"z", coordinate(random)}};
      const double value = ValueAt(RootOf(f), point);
      const double fine = CentralDifference(RootOf(f), point, variable, 1e-5);
      const double coarse = CentralDifference(RootOf(f), point, variable, 2e-5);
      // Where the difference itself is unsteady the point tells nothing about the rules.
      if (!std::isfinite(value) || std::fabs(value) > 1e4 || std::fabs(fine - coarse) > 1e-7 * (1 + std::fabs(fine)))
        continue;
      const double got = ValueAt(RootOf(reread), point);
      EXPECT_NEAR(got, fine, 1e-5 * std::max(1.0, std::fabs(fine))) << "d/d" << variable << " of " << text << " = " << printed;
      ++compared;
    }
    for (mathexpr* e : {reread, derivative, x, f}) mathexpr_destroy(e);
  }
  EXPECT_GT(compared, 4000);
}

TEST_F(DerivProperty, GradientElementsAreTheSingleDerivatives) {
  const char* const variables[] = {"x", "y", "z", "x(-1)", "w", "3", "x*y"};
  mathexpr* list = mathexpr_create(table, "@list(x, y, z, x(-1), w, 3, x*y)");
  for (uint32_t seed = 1; seed <= 500; ++seed) {
    SmoothFormulas formulas(seed);
    // A sum of several terms, so that the gradient restricts it term by term.
    std::string text = formulas.Any(2);
    for (uint32_t term = 0; term < seed % 6; ++term) text += " + " + formulas.Any(1 + term % 3) + "*x(-1)";
    mathexpr* f = mathexpr_create(table, text.c_str());
    mathexpr* gradient = mathexpr_deriv(f, list);
    const ENode* element = RootOf(gradient)->firstChild;
    for (const char* name : variables) {
      mathexpr* v = mathexpr_create(table, name);
      mathexpr* single = mathexpr_deriv(f, v);
      // Non-symbols give 0 in a gradient, whatever f holds.
      mathexpr* expected = RootOf(v)->GetType() == SymbolType ? single : mathexpr_create(table, "0");
      mathexpr_evaluate(expected, 3);
      ASSERT_NE(element, nullptr) << text;
      EXPECT_TRUE(NodeEqual(element, RootOf(expected))) << text << " by " << name << ": " << Text(single);
      element = element->next;
      if (expected != single) mathexpr_destroy(expected);
      mathexpr_destroy(single);
      mathexpr_destroy(v);
    }
    mathexpr_destroy(gradient);
    mathexpr_destroy(f);
  }
  mathexpr_destroy(list);
}

}  // namespace
}  // namespace quillon::testing
