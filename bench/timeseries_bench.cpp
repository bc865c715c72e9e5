// Time expansion at scale: a model of n equations' worth of terms, d(xi) + @movav(yi, 12) summed
// over i, evaluated plainly (the baseline), with its lags shifted by @lag, and written out in
// plain lags by @expandtime. Each runs at growing n; the complexity fit and the time per term
// against the baseline show that the writing out stays linear in the size of the model.
#include <benchmark/benchmark.h>

#include <string>

#include "quillon.h"

namespace {

int32_t QUILLON_CALL AnySeries(const char*) { return 15; }

mathsymtable* Series() {
  static mathsymtable* table = mathsymtable_create(AnySeries, 1);
  return table;
}

std::string Model(int64_t equations) {
  std::string text;
  for (int64_t i = 0; i < equations; ++i) {
    const std::string n = std::to_string(i);
    text += (i > 0 ? " + " : "") + std::string("d(x") + n + ") + @movav(y" + n + ", 12)";
  }
  return text;
}

void Run(benchmark::State& state, const char* open, const char* close) {
  const std::string text = open + Model(state.range(0)) + close;
  int32_t nodes = 0;
  for (auto _ : state) {
    mathexpr* e = mathexpr_create(Series(), text.c_str());
    mathexpr_evaluate(e, 3);
    uint32_t attributes = 0, symbols = 0;
    mathexpr_get_attributes(e, &nodes, &attributes, &symbols);
    mathexpr_destroy(e);
  }
  state.SetComplexityN(state.range(0));
  state.counters["result_nodes"] = nodes;
  state.counters["per_equation"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                      benchmark::Counter::kIsIterationInvariantRate |
                                                          benchmark::Counter::kInvert);
}

void BM_PlainBaseline(benchmark::State& state) { Run(state, "", ""); }
void BM_LagShift(benchmark::State& state) { Run(state, "@lag(", ", 3)"); }
void BM_TimeExpand(benchmark::State& state) { Run(state, "@expandtime(", ")"); }

BENCHMARK(BM_PlainBaseline)->RangeMultiplier(4)->Range(625, 10000)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LagShift)->RangeMultiplier(4)->Range(625, 10000)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TimeExpand)->RangeMultiplier(4)->Range(625, 10000)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
