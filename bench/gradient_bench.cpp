// Derivatives at the scale of a statistics host. The gradient of
// sum_{i=1..N} b_i*x_i*exp(-c_i*t) by the list {b_1, ..., b_N}, N = 100, 1,000 and 10,000, is
// timed beside the plain evaluation (mode 3) of the same sum, which is the baseline: the figure
// to read is the ratio gradient / evaluation at each N, which should stay nearly flat as N grows,
// since each parameter costs only the terms that mention it. Then one derivative of each of a
// few realistic formulas against the evaluation of the formula itself. The live-node count after
// destroying every result must come back to where it started. Ratios are printed at the end.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <random>
#include <string>

#include "core/enode.h"
#include "quillon.h"

namespace {

std::string IndexedSum(int n) {
  std::string text;
  for (int i = 1; i <= n; ++i) {
    const std::string k = std::to_string(i);
    text += (i > 1 ? " + b_" : "b_") + k + "*x_" + k + "*exp(-c_" + k + "*t)";
  }
  return text;
}

std::string ParameterList(int n) {
  std::string text = "@list(";
  for (int i = 1; i <= n; ++i) text += (i > 1 ? ", b_" : "b_") + std::to_string(i);
  return text + ")";
}

std::string Polynomial(int terms, int variables) {
  std::mt19937 random(17);
  std::string text;
  for (int t = 0; t < terms; ++t) {
    text += (t > 0 ? " + " : "") + std::to_string(1 + random() % 9);
    for (int f = 0; f < 3; ++f) text += "*v" + std::to_string(1 + random() % variables) + "^" + std::to_string(1 + random() % 3);
  }
  return text;
}

// A translog cost function in five input prices: first and second order terms in their logs.
std::string Translog() {
  std::string text = "a0 + ay*log(y)";
  for (int i = 1; i <= 5; ++i) {
    const std::string pi = "log(p" + std::to_string(i) + ")";
    text += " + a" + std::to_string(i) + "*" + pi;
    for (int j = i; j <= 5; ++j) text += " + (1/2)*g" + std::to_string(i) + std::to_string(j) + "*" + pi + "*log(p" + std::to_string(j) + ")";
  }
  return text;
}

struct Formula {
  const char* name;
  std::string text;
  const char* variable;
};

const Formula& Realistic(int which) {
  static const Formula formulas[] = {
      {"CES by rho", "A*(d1*K^(-rho) + d2*L^(-rho) + d3*M^(-rho))^(-nu/rho)", "rho"},
      {"translog by p1", Translog(), "p1"},
      {"logistic likelihood by b1",
       "y*log(1/(1 + exp(-(b0 + b1*x1 + b2*x2 + b3*x3)))) + (1 - y)*log(1 - 1/(1 + exp(-(b0 + b1*x1 + b2*x2 + b3*x3))))",
       "b1"},
      {"polynomial 200x30 by v1", Polynomial(200, 30), "v1"},
  };
  return formulas[which];
}

mathsymtable* Names() {
  static mathsymtable* table = mathsymtable_create(nullptr, 1);
  return table;
}

double Seconds(std::chrono::steady_clock::time_point since) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// The live nodes left after the loop, against the count before it.
void CountLeftovers(benchmark::State& state, int64_t before) {
  state.counters["live_nodes_after_destroy"] = static_cast<double>(quillon::LiveNodeCount() - before);
}

// Plain evaluation in mode 3 of a freshly parsed text; only the evaluation is timed.
void TimeEvaluation(benchmark::State& state, const std::string& text) {
  mathexpr_destroy(mathexpr_create_void());
  const int64_t before = quillon::LiveNodeCount();
  for (auto _ : state) {
    mathexpr* e = mathexpr_create(Names(), text.c_str());
    const auto start = std::chrono::steady_clock::now();
    mathexpr_evaluate(e, 3);
    state.SetIterationTime(Seconds(start));
    mathexpr_destroy(e);
  }
  CountLeftovers(state, before);
}

// mathexpr_deriv of text by variable; only the export is timed.
void TimeDerivative(benchmark::State& state, const std::string& text, const std::string& variable) {
  mathexpr_destroy(mathexpr_create_void());
  const int64_t before = quillon::LiveNodeCount();
  mathexpr* f = mathexpr_create(Names(), text.c_str());
  mathexpr* x = mathexpr_create(Names(), variable.c_str());
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    mathexpr* d = mathexpr_deriv(f, x);
    state.SetIterationTime(Seconds(start));
    mathexpr_destroy(d);
  }
  mathexpr_destroy(x);
  mathexpr_destroy(f);
  CountLeftovers(state, before);
}

void BM_SumEvaluation(benchmark::State& state) { TimeEvaluation(state, IndexedSum(static_cast<int>(state.range(0)))); }
void BM_SumGradient(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  TimeDerivative(state, IndexedSum(n), ParameterList(n));
}
void BM_FormulaEvaluation(benchmark::State& state) { TimeEvaluation(state, Realistic(static_cast<int>(state.range(0))).text); }
void BM_FormulaDerivative(benchmark::State& state) {
  const Formula& formula = Realistic(static_cast<int>(state.range(0)));
  TimeDerivative(state, formula.text, formula.variable);
}

BENCHMARK(BM_SumEvaluation)->Arg(100)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SumGradient)->Arg(100)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FormulaEvaluation)->DenseRange(0, 3)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FormulaDerivative)->DenseRange(0, 3)->UseManualTime()->Unit(benchmark::kMicrosecond);

// Prints the usual table, then each measured case over its baseline of the same argument.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) seconds_[run.benchmark_name()] = run.GetAdjustedRealTime() / Scale(run.time_unit);
    ConsoleReporter::ReportRuns(runs);
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\nratios against the baseline in this run:\n");
    for (const int n : {100, 1000, 10000}) Ratio("gradient N=" + std::to_string(n), "BM_SumGradient", "BM_SumEvaluation", n);
    for (int i = 0; i < 4; ++i) Ratio(Realistic(i).name, "BM_FormulaDerivative", "BM_FormulaEvaluation", i);
  }

 private:
  static double Scale(benchmark::TimeUnit unit) {
    switch (unit) {
      case benchmark::kMillisecond: return 1e3;
      case benchmark::kMicrosecond: return 1e6;
      case benchmark::kNanosecond: return 1e9;
      default: return 1.0;
    }
  }
  void Ratio(const std::string& label, const std::string& measured, const std::string& baseline, int argument) {
    const std::string suffix = "/" + std::to_string(argument) + "/manual_time";
    const auto m = seconds_.find(measured + suffix);
    const auto b = seconds_.find(baseline + suffix);
    if (m == seconds_.end() || b == seconds_.end()) return;
    std::printf("  %-28s %10.3f ms  %8.2fx the evaluation\n", label.c_str(), m->second * 1e3, m->second / b->second);
  }

  std::map<std::string, double> seconds_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
