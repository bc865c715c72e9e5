// The numeric face against compiled code: ten formulas of the kind hosts evaluate over their
// observations, each timed over the same rows of random inputs as (a) the formula written here in
// C++ (the baseline), (b) muparser where the build found it, (c) mathexpr_stackeval once per
// observation on the @subexpr form and (d) the batch evaluator over whole columns. The figures
// are nanoseconds per observation and their ratios to (a); every engine's values are checked
// against (a) first, so a fast wrong answer cannot pass unnoticed.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "quillon.h"
#include "quillon_program.h"

#ifdef QUILLON_HAVE_MUPARSER
#include <muParser.h>
#endif

namespace {

constexpr size_t kRows = 4096;
constexpr int kRuns = 7;

using Columns = std::vector<const double*>;
using NativeLoop = std::function<void(const double* const* c, double* out, size_t n)>;

// The baseline loop over rows with the formula inlined into it.
template <class F>
NativeLoop Native(F f) {
  return [f](const double* const* c, double* out, size_t n) {
    for (size_t i = 0; i < n; ++i) out[i] = f(c, i);
  };
}

struct Formula {
  std::string name;
  std::vector<std::string> variables;  // column k of the native code is variables[k]
  std::string text;                    // in the language of quillon
  std::string muparserText;            // the same in muparser's syntax
  NativeLoop native;
};

// A sum of 200 products of 20 of 30 variables, each with its own coefficient, as data that the
// text generators and the native loop share.
struct SumOfProducts {
  static constexpr int kTerms = 200, kFactors = 20, kVariables = 30;
  std::vector<double> coefficients;
  std::vector<std::vector<int>> factors;

  SumOfProducts() {
    std::mt19937 random(20);
    std::vector<int> all(kVariables);
    for (int v = 0; v < kVariables; ++v) all[static_cast<size_t>(v)] = v;
    for (int t = 0; t < kTerms; ++t) {
      std::shuffle(all.begin(), all.end(), random);
      std::vector<int> chosen(all.begin(), all.begin() + kFactors);
      std::sort(chosen.begin(), chosen.end());
      factors.push_back(chosen);
      coefficients.push_back(0.25 * static_cast<double>(1 + t % 7));
    }
  }
  std::string Text() const {
    std::string text;
    for (size_t t = 0; t < factors.size(); ++t) {
      char coefficient[32];
      std::snprintf(coefficient, sizeof coefficient, "%g", coefficients[t]);
      text += (t == 0 ? "" : " + ") + std::string(coefficient);
      for (int v : factors[t]) text += "*v" + std::to_string(v);
    }
    return text;
  }
  static std::vector<std::string> Variables() {
    std::vector<std::string> names;
    for (int v = 0; v < kVariables; ++v) names.push_back("v" + std::to_string(v));
    return names;
  }
};

std::vector<Formula> Formulas(const SumOfProducts& sop) {
  using C = const double* const*;
  const std::string sum = sop.Text();
  // the derivative of the logistic term in b1, as the engine writes it: the linear index and
  // its exponential are repeated
  return {
      {"polynomial, degree 8", {"x"},
       "1 + 2*x - 3*x^2 + 0.5*x^3 + 4*x^4 - x^5 + 0.25*x^6 + 3*x^7 - 2*x^8",
       "1 + 2*x - 3*x^2 + 0.5*x^3 + 4*x^4 - x^5 + 0.25*x^6 + 3*x^7 - 2*x^8",
       Native([](C c, size_t i) {
         const double x = c[0][i];
         return 1 + 2 * x - 3 * x * x + 0.5 * x * x * x + 4 * x * x * x * x - std::pow(x, 5) +
                0.25 * std::pow(x, 6) + 3 * std::pow(x, 7) - 2 * std::pow(x, 8);
       })},
      {"rational function", {"x"}, "(1 + 2*x + 3*x^2)/(1 - x + 0.5*x^2 + 0.1*x^3)",
       "(1 + 2*x + 3*x^2)/(1 - x + 0.5*x^2 + 0.1*x^3)", Native([](C c, size_t i) {
         const double x = c[0][i];
         return (1 + 2 * x + 3 * x * x) / (1 - x + 0.5 * x * x + 0.1 * x * x * x);
       })},
      {"nested powers", {"x", "y"}, "((1 + x^2)^1.5 + (y^2 + 1)^(1/3))^0.7",
       "((1 + x^2)^1.5 + (y^2 + 1)^(1/3))^0.7", Native([](C c, size_t i) {
         const double x = c[0][i], y = c[1][i];
         return std::pow(std::pow(1 + x * x, 1.5) + std::pow(y * y + 1, 1.0 / 3.0), 0.7);
       })},
      {"logistic log-likelihood", {"y", "x1", "x2"},
       "y*(0.2 + 0.5*x1 - 0.3*x2) - log(1 + exp(0.2 + 0.5*x1 - 0.3*x2))",
       "y*(0.2 + 0.5*x1 - 0.3*x2) - ln(1 + exp(0.2 + 0.5*x1 - 0.3*x2))", Native([](C c, size_t i) {
         const double y = c[0][i], x1 = c[1][i], x2 = c[2][i];
         const double index = 0.2 + 0.5 * x1 - 0.3 * x2;
         return y * index - std::log(1 + std::exp(index));
       })},
      {"CES function", {"k", "l"}, "1.1*(0.4*k^(-0.3) + 0.6*l^(-0.3))^(-10/3)",
       "1.1*(0.4*k^(-0.3) + 0.6*l^(-0.3))^(-10/3)", Native([](C c, size_t i) {
         const double k = c[0][i], l = c[1][i];
         return 1.1 * std::pow(0.4 * std::pow(k, -0.3) + 0.6 * std::pow(l, -0.3), -10.0 / 3.0);
       })},
      {"translog cost", {"w1", "w2", "q"},
       "exp(0.3 + 0.4*log(w1) + 0.6*log(w2) + 0.9*log(q) + 0.05*log(w1)^2 - 0.1*log(w1)*log(w2)"
       " + 0.05*log(w2)^2 + 0.02*log(q)*log(w1))",
       "exp(0.3 + 0.4*ln(w1) + 0.6*ln(w2) + 0.9*ln(q) + 0.05*ln(w1)^2 - 0.1*ln(w1)*ln(w2)"
       " + 0.05*ln(w2)^2 + 0.02*ln(q)*ln(w1))",
       Native([](C c, size_t i) {
         const double lw1 = std::log(c[0][i]), lw2 = std::log(c[1][i]), lq = std::log(c[2][i]);
         return std::exp(0.3 + 0.4 * lw1 + 0.6 * lw2 + 0.9 * lq + 0.05 * lw1 * lw1 - 0.1 * lw1 * lw2 +
                         0.05 * lw2 * lw2 + 0.02 * lq * lw1);
       })},
      {"damped oscillation", {"t"}, "exp(-0.3*t)*(cos(2*t) + 0.5*sin(2*t)) + @sqrt(1 + t^2)",
       "exp(-0.3*t)*(cos(2*t) + 0.5*sin(2*t)) + sqrt(1 + t^2)", Native([](C c, size_t i) {
         const double t = c[0][i];
         return std::exp(-0.3 * t) * (std::cos(2 * t) + 0.5 * std::sin(2 * t)) + std::sqrt(1 + t * t);
       })},
      {"repeated subexpressions", {"x", "y"},
       "(x + y)^2*log(x + y) + exp(-(x + y))*(x*y) + (x*y)/(x + y) + @sqrt(x*y)*(x + y)^2",
       "(x + y)^2*ln(x + y) + exp(-(x + y))*(x*y) + (x*y)/(x + y) + sqrt(x*y)*(x + y)^2",
       Native([](C c, size_t i) {
         const double x = c[0][i], y = c[1][i];
         return (x + y) * (x + y) * std::log(x + y) + std::exp(-(x + y)) * (x * y) + (x * y) / (x + y) +
                std::sqrt(x * y) * (x + y) * (x + y);
       })},
      {"200 products of 20 of 30", SumOfProducts::Variables(), sum, sum,
       [&sop](const double* const* c, double* out, size_t n) {
         for (size_t i = 0; i < n; ++i) {
           double total = 0;
           for (size_t t = 0; t < sop.factors.size(); ++t) {
             double product = sop.coefficients[t];
             for (int v : sop.factors[t]) product *= c[v][i];
             total += product;
           }
           out[i] = total;
         }
       }},
      {"derivative of the logistic term", {"y", "x1", "x2", "b0", "b1", "b2"},
       "y*x1 - x1*exp(b0 + b1*x1 + b2*x2)/(1 + exp(b0 + b1*x1 + b2*x2))",
       "y*x1 - x1*exp(b0 + b1*x1 + b2*x2)/(1 + exp(b0 + b1*x1 + b2*x2))", Native([](C c, size_t i) {
         const double y = c[0][i], x1 = c[1][i], x2 = c[2][i], b0 = c[3][i], b1 = c[4][i], b2 = c[5][i];
         const double e = std::exp(b0 + b1 * x1 + b2 * x2);
         return y * x1 - x1 * e / (1 + e);
       })},
  };
}

// One way of computing a formula over all rows: run writes out.
struct Engine {
  std::function<void()> run;
  std::vector<double> out = std::vector<double>(kRows);
  double nanos = INFINITY;  // best per row
};

// The runs of the engines alternate, so that a machine busy with other work slows them alike.
void TimeInTurn(std::vector<Engine*>& engines) {
  for (int r = 0; r < kRuns; ++r)
    for (Engine* engine : engines) {
      const auto start = std::chrono::steady_clock::now();
      engine->run();
      const auto stop = std::chrono::steady_clock::now();
      engine->nanos = std::min(engine->nanos, std::chrono::duration<double, std::nano>(stop - start).count() / kRows);
    }
}

// A value that should be a number and is not counts as infinitely wrong; NaN where the
// baseline has NaN (a row outside the domain) is right.
double WorstRelativeError(const std::vector<double>& got, const std::vector<double>& want) {
  double worst = 0;
  for (size_t i = 0; i < want.size(); ++i) {
    if (std::isnan(got[i]) && std::isnan(want[i])) continue;
    const double error = std::fabs(got[i] - want[i]) / std::max(1.0, std::fabs(want[i]));
    worst = std::isnan(error) ? INFINITY : std::max(worst, error);
  }
  return worst;
}

// The columns of data in the order of a program's inputs.
std::vector<const double*> InputsOf(const quillon_program* p, const std::map<std::string, std::vector<double>>& data) {
  std::vector<const double*> inputs;
  for (int32_t i = 0; i < quillon_program_input_count(p); ++i) {
    char name[64] = {};
    quillon_program_input_name(p, i, name, sizeof name - 1, nullptr);
    inputs.push_back(data.at(name).data());
  }
  return inputs;
}

// The stack evaluator as a host uses it: one call per row on the @subexpr form.
void RunStackEval(mathexpr* prepared, const std::vector<const double*>& inputs, std::vector<double>& out) {
  std::vector<double> stack(4096), row(inputs.size());
  for (size_t i = 0; i < kRows; ++i) {
    for (size_t k = 0; k < inputs.size(); ++k) row[k] = inputs[k][i];
    const int32_t cells = mathexpr_stackeval(prepared, stack.data(), row.data());
    out[i] = stack[static_cast<size_t>(cells - 1)];
  }
}

#ifdef QUILLON_HAVE_MUPARSER
// muparser as its hosts use it: variables bound to cells that each row fills.
struct MuparserRun {
  MuparserRun(const Formula& f, const Columns& columns) : columns(columns), values(f.variables.size()) {
    for (size_t k = 0; k < values.size(); ++k) parser.DefineVar(f.variables[k], &values[k]);
    parser.SetExpr(f.muparserText);
  }
  void operator()(std::vector<double>& out) {
    for (size_t i = 0; i < kRows; ++i) {
      for (size_t k = 0; k < values.size(); ++k) values[k] = columns[k][i];
      out[i] = parser.Eval();
    }
  }
  Columns columns;
  std::vector<double> values;
  mu::Parser parser;
};
#endif

void PrintCell(const Engine* engine, const Engine& native) {
  if (engine == nullptr) {
    std::printf(" %17s", "-");
    return;
  }
  std::printf(" %8.1f (%5.2fx)%s", engine->nanos, engine->nanos / native.nanos,
              WorstRelativeError(engine->out, native.out) > 1e-9 ? "!" : " ");
}

double Median(std::vector<double> v) {
  if (v.empty()) return NAN;
  std::sort(v.begin(), v.end());
  const size_t half = v.size() / 2;
  return v.size() % 2 == 1 ? v[half] : (v[half - 1] + v[half]) / 2;
}

}  // namespace

int main() {
  const SumOfProducts sop;
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  std::mt19937 random(1);
  std::uniform_real_distribution<double> positive(0.5, 1.5);
  std::printf("ns per observation over %zu rows, best of %d runs in turn; (ratio to native C++); ! marks a "
              "value off by more than 1e-9\n",
              kRows, kRuns);
#ifndef QUILLON_HAVE_MUPARSER
  std::printf("muparser not found at build time (Debian libmuparser-dev): its column is left empty\n");
#endif
  std::printf("%-32s %9s %17s %17s %17s\n", "formula", "native", "muparser", "stackeval", "batch");
  std::vector<double> muparserRatios, stackRatios, batchRatios;
  double worstBatch = 0;
  for (const Formula& f : Formulas(sop)) {
    std::map<std::string, std::vector<double>> data;
    Columns columns;
    for (const std::string& v : f.variables) {
      auto& column = data[v];
      for (size_t i = 0; i < kRows; ++i) column.push_back(positive(random));
      columns.push_back(column.data());
    }
    mathexpr* e = mathexpr_create(table, f.text.c_str());
    quillon_program* p = quillon_program_create(e);
    mathexpr_destroy(e);
    mathexpr* prepared = mathexpr_create(table, ("@subexpr(" + f.text + ")").c_str());
    mathexpr_evaluate(prepared, 3);
    const std::vector<const double*> inputs = InputsOf(p, data);

    Engine native, stack, batch;
    native.run = [&] { f.native(columns.data(), native.out.data(), kRows); };
    stack.run = [&] { RunStackEval(prepared, inputs, stack.out); };
    double* outputs[] = {batch.out.data()};
    batch.run = [&] { quillon_program_evaluate(p, kRows, inputs.data(), outputs); };
    std::vector<Engine*> engines = {&native, &stack, &batch};
    Engine* muparser = nullptr;
#ifdef QUILLON_HAVE_MUPARSER
    MuparserRun muparserRun(f, columns);
    Engine muparserEngine;
    muparserEngine.run = [&] { muparserRun(muparserEngine.out); };
    muparser = &muparserEngine;
    engines.push_back(muparser);
#endif
    TimeInTurn(engines);
    if (muparser != nullptr) muparserRatios.push_back(muparser->nanos / native.nanos);
    stackRatios.push_back(stack.nanos / native.nanos);
    batchRatios.push_back(batch.nanos / native.nanos);
    worstBatch = std::max(worstBatch, batch.nanos / native.nanos);

    std::printf("%-32s %9.1f", f.name.c_str(), native.nanos);
    PrintCell(muparser, native);
    PrintCell(&stack, native);
    PrintCell(&batch, native);
    std::printf("\n");
    mathexpr_destroy(prepared);
    quillon_program_destroy(p);
  }
  std::printf("median ratio: muparser %.2f, stackeval %.2f, batch %.2f; worst batch ratio %.2f\n",
              Median(muparserRatios), Median(stackRatios), Median(batchRatios), worstBatch);
  mathsymtable_destroy(table);
  quillon_cleanup();
  return 0;
}
