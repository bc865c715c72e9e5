// Properties over random models. Time expansion: the written-out text of lags, d, dlog, @movav,
// @movsum and @pch, evaluated on random series, agrees with the operators computed directly.
// Normalizing: @normalize(lhs := z, x) of a random invertible equation, substituted back,
// satisfies the equation.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <random>
#include <string>

#include "core/function_node.h"
#include "core/symbol_node.h"
#include "core/well_known.h"
#include "timeseries/series_test.h"

namespace quillon::testing {
namespace {

constexpr int kLength = 64;  // observations of each series
constexpr int kNow = 50;     // the observation evaluated; every lag drawn stays above 0

// Series and scalars by name; a series symbol x(-k) reads observation kNow - k.
using Values = std::map<std::string, std::vector<double>>;

// Evaluates the plain arithmetic that expansion leaves. Any other function fails the test.
double ValueOf(const ENode* node, const Values& values) {
  switch (node->GetType()) {
    case IntType:
    case RationalType:
    case RealType:
      return node->GetValue();
    case SymbolType: {
      const auto* symbol = static_cast<const SymbolENode*>(node);
      return values.at(symbol->def->name).at(kNow + symbol->index1);
    }
    default:
      break;
  }
  const FunctionDef* def = DefOf(node);
  std::vector<double> a;
  for (const ENode* c : Children(node)) a.push_back(ValueOf(c, values));
  if (def == fnPlus || def == fnTimes) {
    double result = def == fnPlus ? 0.0 : 1.0;
    for (double x : a) result = def == fnPlus ? result + x : result * x;
    return result;
  }
  if (def == fnPow && a.size() == 2) return std::pow(a[0], a[1]);
  if (def == fnLog && a.size() == 1) return std::log(a[0]);
  if (def == fnExp && a.size() == 1) return std::exp(a[0]);
  ADD_FAILURE() << "not plain arithmetic: " << Dump(node);
  return NAN;
}

// A term of a random model: its text and its value at observation t computed directly.
struct Term {
  std::string text;
  std::function<double(int)> at;
};

class TimeSeriesProperty : public SeriesTest {
 protected:
  std::mt19937 random{20240611};

  int Draw(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

  Values RandomValues() {
    Values values;
    std::uniform_real_distribution<double> positive(1.0, 2.0);
    for (const char* name : {"x", "y", "z", "p", "q"}) {
      std::vector<double>& series = values[name];
      for (int t = 0; t < kLength; ++t) series.push_back(positive(random));
    }
    return values;
  }

  static Term Difference(const Term& e, int lag) {
    return {"", [f = e.at, lag](int t) { return f(t) - f(t - lag); }};
  }

  Term Series(const Values& values) {
    const std::string name = std::string(1, "xyz"[Draw(0, 2)]);
    const int lag = Draw(0, 3);
    const std::vector<double>* data = &values.at(name);
    return {lag == 0 ? name : name + "(-" + std::to_string(lag) + ")",
            [data, lag](int t) { return (*data)[t - lag]; }};
  }

  // A random operator over a random smaller term; depth bounds the nesting.
  Term RandomTerm(const Values& values, int depth) {
    if (depth == 0) return Series(values);
    const Term e = RandomTerm(values, depth - 1);
    switch (Draw(0, 6)) {
      case 0: {
        const int k = Draw(-1, 3);
        return {"@lag(" + e.text + ", " + std::to_string(k) + ")", [f = e.at, k](int t) { return f(t - k); }};
      }
      case 1: {
        const int n = Draw(0, 3);
        Term result = e;
        for (int i = 0; i < n; ++i) result = Difference(result, 1);
        result.text = "d(" + e.text + ", " + std::to_string(n) + ")";
        return result;
      }
      case 2: {
        const int n = Draw(0, 2), s = Draw(2, 4);
        Term result = Difference(e, s);
        for (int i = 0; i < n; ++i) result = Difference(result, 1);
        result.text = "d(" + e.text + ", " + std::to_string(n) + ", " + std::to_string(s) + ")";
        return result;
      }
      case 3: {
        // Logarithms need positive values: only of a plain series.
        const Term s = Series(values);
        return {"dlog(" + s.text + ")", [f = s.at](int t) { return std::log(f(t)) - std::log(f(t - 1)); }};
      }
      case 4:
      case 5: {
        const int n = Draw(1, 4);
        const bool average = Draw(0, 1) == 1;
        auto window = [f = e.at, n, average](int t) {
          double sum = 0;
          for (int k = 0; k < n; ++k) sum += f(t - k);
          return average ? sum / n : sum;
        };
        return {std::string(average ? "@movav(" : "@movsum(") + e.text + ", " + std::to_string(n) + ")", window};
      }
      default: {
        const Term s = Series(values);
        return {"@pch(" + s.text + ")", [f = s.at](int t) { return (f(t) - f(t - 1)) / f(t - 1); }};
      }
    }
  }

  // The display text of a subtree, through a copy of it.
  static std::string TextOfNode(const ENode* node) {
    mathexpr* copy = ToHost(ExprHandle(node->Clone()));
    std::string text = Text(copy);
    mathexpr_destroy(copy);
    return text;
  }

  // The expression of text after mathexpr_evaluate(3), at observation kNow.
  double EvaluatedValue(const std::string& text, const Values& values) {
    mathexpr* e = mathexpr_create(table, text.c_str());
    mathexpr_evaluate(e, kSimplify);
    const double value = ValueOf(RootOf(e), values);
    mathexpr_destroy(e);
    return value;
  }
};

void ExpectClose(double got, double expected, const std::string& text) {
  EXPECT_NEAR(got, expected, 1e-8 * std::max(1.0, std::fabs(expected))) << text;
}

TEST_F(TimeSeriesProperty, ExpandedModelsAgreeWithTheOperatorsComputedDirectly) {
  for (int model = 0; model < 200; ++model) {
    const Values values = RandomValues();
    std::string text;
    double expected = 0;
    for (int i = 0, terms = Draw(1, 3); i < terms; ++i) {
      const Term term = RandomTerm(values, Draw(1, 2));
      text += (i > 0 ? " + " : "") + term.text;
      expected += term.at(kNow);
    }
    ExpectClose(EvaluatedValue("@expandtime(" + text + ")", values), expected, text);
  }
}

// Steps that keep a positive value positive, each with an inverse in @normalize.
std::string Wrapped(const std::string& e, int step) {
  switch (step) {
    case 0: return "(" + e + ") + p";
    case 1: return "q*(" + e + ")";
    case 2: return "(" + e + ")^2";
    case 3: return "exp((" + e + ")/8)";
    case 4: return "2^(" + e + ")";
    case 5: return "@movav(" + e + ", 3)";
    default: return "d(" + e + ") + 2*@lag(" + e + ", 1)";
  }
}

TEST_F(TimeSeriesProperty, NormalizedEquationsHoldWhenSubstitutedBack) {
  for (int model = 0; model < 200; ++model) {
    Values values = RandomValues();
    std::string lhs = "x";
    for (int i = 0, steps = Draw(1, 3); i < steps; ++i) lhs = Wrapped(lhs, Draw(0, 6));
    // The right side is the value of the left at the drawn x, so a solution exists.
    values["z"][kNow] = EvaluatedValue("@expandtime(" + lhs + ")", values);
    const std::string equation = "@normalize(" + lhs + " := z, x)";
    mathexpr* solved = mathexpr_create(table, equation.c_str());
    mathexpr_evaluate(solved, kSimplify);
    const ENode* root = RootOf(solved);
    ASSERT_TRUE(IsCallOf(root, fnAssign)) << equation << " gave " << Dump(root);
    ASSERT_EQ(Dump(root->firstChild), "x") << equation;
    // Lagged forms on the right are left as they are; the evaluator needs them written out.
    const std::string rhs = TextOfNode(root->lastChild);
    mathexpr_destroy(solved);
    values["x"][kNow] = EvaluatedValue("@expandtime(" + rhs + ")", values);
    ExpectClose(EvaluatedValue("@expandtime(" + lhs + ")", values), values["z"][kNow], equation);
  }
}

}  // namespace
}  // namespace quillon::testing
