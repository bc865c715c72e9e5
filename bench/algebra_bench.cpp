// Algebra at scale: two expansions and the simplification of a long sum with repeated terms.
// Each case is timed against parsing the same text in the same run (the baseline), and the
// live-node count is reported before, after evaluation, and after destroying the result, which
// must come back to where it started.
#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "core/enode.h"
#include "quillon.h"

namespace {

std::string RandomMonomials(int terms, int variables) {
  std::mt19937 random(2024);
  std::string text;
  for (int t = 0; t < terms; ++t) {
    if (t > 0) text += random() % 4 == 0 ? " - " : " + ";
    text += std::to_string(1 + random() % 9);
    // Few distinct monomials, so that like terms repeat and collect.
    const int factors = 1 + static_cast<int>(random() % 3);
    for (int f = 0; f < factors; ++f) text += "*v" + std::to_string(random() % variables) + "^" + std::to_string(1 + random() % 2);
  }
  return text;
}

const std::string& Case(int which) {
  static const std::string cases[] = {
      "@expand((a+b+c+d)^12)",
      "@expand((1+x)^12*(1+y)^12)",
      RandomMonomials(10000, 20),
  };
  return cases[which];
}

mathsymtable* Names() {
  static mathsymtable* table = mathsymtable_create(nullptr, 1);
  return table;
}

void BM_ParseBaseline(benchmark::State& state) {
  const std::string& text = Case(static_cast<int>(state.range(0)));
  for (auto _ : state) mathexpr_destroy(mathexpr_create(Names(), text.c_str()));
}

void BM_Evaluate(benchmark::State& state) {
  const std::string& text = Case(static_cast<int>(state.range(0)));
  mathexpr_destroy(mathexpr_create_void());
  const int64_t before = quillon::LiveNodeCount();
  int64_t during = 0;
  int32_t resultNodes = 0;
  for (auto _ : state) {
    mathexpr* e = mathexpr_create(Names(), text.c_str());
    mathexpr_evaluate(e, 3);
    during = quillon::LiveNodeCount() - before;
    uint32_t attributes = 0, symbols = 0;
    mathexpr_get_attributes(e, &resultNodes, &attributes, &symbols);
    mathexpr_destroy(e);
  }
  state.counters["result_nodes"] = resultNodes;
  state.counters["live_nodes_during"] = static_cast<double>(during);
  state.counters["live_nodes_after_destroy"] = static_cast<double>(quillon::LiveNodeCount() - before);
}

BENCHMARK(BM_ParseBaseline)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Evaluate)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
