// Property: a formula prepared with @subexpr and computed by mathexpr_stackeval has the value of
// the formula as written. Random formulas over arithmetic, powers, logarithms and a few
// functions with kernels, with subtrees repeated so that temporaries arise, are generated
// together with their value; the prepared form is computed at random points in (0.5, 2).
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "support/api_helpers.h"

namespace quillon::testing {
namespace {

using Point = std::array<double, 3>;

struct Formula {
  std::string text;
  std::function<double(const Point&)> value;
};

Formula Binary(const Formula& a, const char* op, const Formula& b, double (*f)(double, double)) {
  return {"(" + a.text + op + b.text + ")", [=](const Point& p) { return f(a.value(p), b.value(p)); }};
}
Formula Call(const char* name, const Formula& a, double (*f)(double)) {
  return {std::string(name) + "(" + a.text + ")", [=](const Point& p) { return f(a.value(p)); }};
}

class FormulaGenerator {
 public:
  explicit FormulaGenerator(uint32_t seed) : random_(seed) {}

  // Any sign.
  Formula Any(int depth) {
    if (Reuse()) return pool_[Pick(static_cast<uint32_t>(pool_.size()))];
    if (depth <= 0) return Positive(0);
    Formula f;
    switch (Pick(9)) {
      case 0: f = Binary(Any(depth - 1), " + ", Any(depth - 1), [](double a, double b) { return a + b; }); break;
      case 1: f = Binary(Any(depth - 1), " - ", Any(depth - 1), [](double a, double b) { return a - b; }); break;
      case 2: f = Binary(Any(depth - 1), " * ", Any(depth - 1), [](double a, double b) { return a * b; }); break;
      case 3: f = Binary(Any(depth - 1), " / ", Positive(depth - 1), [](double a, double b) { return a / b; }); break;
      case 4: f = Call("log", Positive(depth - 1), [](double a) { return std::log(a); }); break;
      case 5: f = Call("@sin", Any(depth - 1), [](double a) { return std::sin(a); }); break;
      case 6: f = Call("@atan", Any(depth - 1), [](double a) { return std::atan(a); }); break;
      case 7: f = Call("-", Any(depth - 1), [](double a) { return -a; }); break;
      default: f = Positive(depth); break;
    }
    return Remember(f);
  }

 private:
  // Positive at every point of the range.
  Formula Positive(int depth) {
    if (depth <= 0) {
      if (Pick(3) == 0) {
        const int k = 1 + static_cast<int>(Pick(5));
        return {std::to_string(k), [k](const Point&) { return static_cast<double>(k); }};
      }
      const uint32_t v = Pick(3);
      return {std::string(1, "xyz"[v]), [v](const Point& p) { return p[v]; }};
    }
    static const char* const kExponents[] = {"2", "3", "4", "(-1)", "(-2)", "0.5", "1.5"};
    static const double kExponentValues[] = {2, 3, 4, -1, -2, 0.5, 1.5};
    switch (Pick(7)) {
      case 0: return Binary(Positive(depth - 1), " + ", Positive(depth - 1), [](double a, double b) { return a + b; });
      case 1: return Binary(Positive(depth - 1), " * ", Positive(depth - 1), [](double a, double b) { return a * b; });
      case 2: return Binary(Positive(depth - 1), " / ", Positive(depth - 1), [](double a, double b) { return a / b; });
      case 3: return Call("exp", Call("@cos", Any(depth - 1), [](double a) { return std::cos(a); }),
                          [](double a) { return std::exp(a); });
      case 4: return Call("@sqrt", Positive(depth - 1), [](double a) { return std::sqrt(a); });
      case 5: return Call("@cnorm", Any(depth - 1), [](double a) { return 0.5 * std::erfc(-a / std::sqrt(2.0)); });
      default: {
        const uint32_t e = Pick(7);
        const Formula base = Positive(depth - 1);
        const double exponent = kExponentValues[e];
        return {"(" + base.text + ")^" + kExponents[e],
                [base, exponent](const Point& p) { return std::pow(base.value(p), exponent); }};
      }
    }
  }
  bool Reuse() { return !pool_.empty() && Pick(4) == 0; }
  Formula Remember(const Formula& f) {
    pool_.push_back(f);
    return f;
  }
  uint32_t Pick(uint32_t n) { return random_() % n; }

  std::mt19937 random_;
  std::vector<Formula> pool_;
};

bool Close(double a, double b) {
  return std::fabs(a - b) <= 1e-9 * std::max({1.0, std::fabs(a), std::fabs(b)});
}

class StackEvalProperty : public NoLeakTest {};

// The three variables stand first in a list, so that they hold the slots 0, 1 and 2 whatever
// the formula keeps of them; the formula's value is the last cell.
TEST_F(StackEvalProperty, PreparedFormulasKeepTheirValue) {
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  std::mt19937 pointRandom(11);
  std::uniform_real_distribution<double> coordinate(0.5, 2.0);
  std::vector<double> stack(4096);
  int compared = 0, shared = 0;
  for (uint32_t seed = 1; seed <= 2000; ++seed) {
    FormulaGenerator generator(seed);
    const Formula formula = generator.Any(2 + seed % 4);
    const std::string text = "@subexpr({x, y, z, " + formula.text + "})";
    mathexpr* e = mathexpr_create(table, text.c_str());
    mathexpr_evaluate(e, 3);
    ASSERT_FALSE(mathexpr_is_error(e)) << text;
    if (RootOf(e)->childCount == 2 && RootOf(e)->lastChild->childCount == 4) ++shared;
    for (int sample = 0; sample < 3; ++sample) {
      const Point point = {coordinate(pointRandom), coordinate(pointRandom), coordinate(pointRandom)};
      const double expected = formula.value(point);
      if (!std::isfinite(expected) || std::fabs(expected) > 1e8) continue;
      const int32_t cells = mathexpr_stackeval(e, stack.data(), point.data());
      ASSERT_GE(cells, 4) << text;
      const double got = stack[static_cast<size_t>(cells) - 1];
      EXPECT_TRUE(Close(expected, got)) << text << ": " << expected << " vs " << got;
      ++compared;
    }
    mathexpr_destroy(e);
  }
  EXPECT_GT(compared, 4000);
  EXPECT_GT(shared, 200);
  mathsymtable_destroy(table);
}

}  // namespace
}  // namespace quillon::testing
