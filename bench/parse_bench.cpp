// Parse throughput on about 1 MB of generated formulas: long sums of products of indexed series
// with function calls. A plain scan of the same bytes in the same run is the baseline, so the
// figure to read is the ratio of the two.
#include <benchmark/benchmark.h>

#include <cctype>
#include <random>
#include <string>

#include "quillon.h"

namespace {

// c7*x12(-3)*log(y4(-1)) + @exp(z9)*w2(2) - ... until the text reaches `bytes`.
std::string MakeFormula(size_t bytes) {
  std::mt19937 random(42);
  auto pick = [&](int n) { return std::to_string(random() % n); };
  std::string text = "y0";
  while (text.size() < bytes) {
    text += random() % 3 == 0 ? " - " : " + ";
    text += "c" + pick(50) + "*x" + pick(40) + "(-" + pick(4) + ")";
    switch (random() % 3) {
      case 0: text += "*log(y" + pick(20) + "(-" + pick(3) + "))"; break;
      case 1: text += "*@exp(z" + pick(20) + ")*w" + pick(9) + "(" + pick(5) + ")"; break;
      default: text += "/(1+@abs(x" + pick(40) + "))"; break;
    }
  }
  return text;
}

const std::string& Formula() {
  static const std::string text = MakeFormula(1 << 20);
  return text;
}

int32_t QUILLON_CALL SeriesType(const char*) { return 15; }

void BM_ScanBaseline(benchmark::State& state) {
  const std::string& text = Formula();
  for (auto _ : state) {
    size_t names = 0;
    for (size_t i = 0; i < text.size(); ++i)
      names += std::isalpha(static_cast<unsigned char>(text[i])) && (i == 0 || !std::isalnum(static_cast<unsigned char>(text[i - 1])));
    benchmark::DoNotOptimize(names);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ScanBaseline)->Unit(benchmark::kMillisecond);

void BM_Parse(benchmark::State& state) {
  const std::string& text = Formula();
  mathsymtable* table = mathsymtable_create(SeriesType, 0);
  for (auto _ : state) {
    mathexpr* e = mathexpr_create(table, text.c_str());
    if (mathexpr_is_error(e)) state.SkipWithError("the formula did not parse");
    mathexpr_destroy(e);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
  mathsymtable_destroy(table);
}
BENCHMARK(BM_Parse)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
