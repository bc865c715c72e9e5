// Draws per second of each generator, against std::mt19937 with the same scaling in the same run.
// The Knuth classes should come close to a plain load per draw: their work is done in batches.
#include <benchmark/benchmark.h>

#include <random>

#include "quillon/random.h"

namespace {

constexpr double kTwoToMinus32 = 2.3283064365386963e-10;

void BM_StdMt19937(benchmark::State& state) {
  std::mt19937 engine(5489);
  for (auto _ : state) benchmark::DoNotOptimize(engine() * kTwoToMinus32);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_StdMt19937);

// Through the base class, as a host holding a RndGen* draws.
void BM_VirtualNext(benchmark::State& state) {
  auto gen = quillon::CreateRndGen(static_cast<int32_t>(state.range(0)));
  gen->Seed(5489);
  for (auto _ : state) benchmark::DoNotOptimize(gen->Next());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_VirtualNext)
    ->ArgName("type")
    ->Arg(quillon::kRndGenKnuth)
    ->Arg(quillon::kRndGenMTwister)
    ->Arg(quillon::kRndGenLecuyer)
    ->Arg(quillon::kRndGenKnuth02)
    ->Arg(quillon::kRndGenMTwister02);

// On the concrete class, where the final Next can be inlined.
template <typename Gen>
void BM_DirectNext(benchmark::State& state) {
  Gen gen;
  gen.Seed(5489);
  for (auto _ : state) benchmark::DoNotOptimize(gen.Next());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DirectNext<quillon::RndGenKnuth02>);
BENCHMARK(BM_DirectNext<quillon::RndGenMTwister02>);
BENCHMARK(BM_DirectNext<quillon::RndGenLecuyer>);

void BM_Gauss(benchmark::State& state) {
  quillon::RndGenKnuth02 gen;
  gen.Seed(5489);
  for (auto _ : state) benchmark::DoNotOptimize(gen.Gauss());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Gauss);

void BM_StdNormal(benchmark::State& state) {
  std::mt19937 engine(5489);
  std::normal_distribution<double> normal;
  for (auto _ : state) benchmark::DoNotOptimize(normal(engine));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_StdNormal);

}  // namespace

BENCHMARK_MAIN();
