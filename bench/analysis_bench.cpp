// Structural analysis at scale, through the public header: symbol lists and set operations over
// 100,000 elements, and the coefficients of a 10,000-term linear form by 1,000 variables. Each
// case has a plain sort of the same elements as its baseline in the same run; divide a case's
// time by its baseline's for the figure that must stay near constant as sizes grow.
#include <benchmark/benchmark.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "quillon.h"

namespace {

// Sizes: the required one and a quarter of it, so that the ratios show how cost grows.
constexpr int kElements = 100000;
constexpr int kTerms = 10000;

mathsymtable* Names() {
  static mathsymtable* table = [] {
    mathsymtable* t = mathsymtable_create(nullptr, 1);
    mathsymtable_add(t, "s", 15);  // a series, so that lags are references of their own
    return t;
  }();
  return table;
}

mathexpr* Parse(const std::string& text) { return mathexpr_create(Names(), text.c_str()); }

// count references to a few thousand names and lags of s, in random order, with repeats.
std::vector<std::string> RandomReferences(int count, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<std::string> items;
  items.reserve(count);
  for (int i = 0; i < count; ++i) {
    const unsigned pick = random() % 4;
    items.push_back(pick == 0 ? "s(-" + std::to_string(random() % 5000) + ")" : "n" + std::to_string(random() % 50000));
  }
  return items;
}

std::string ListText(const std::vector<std::string>& items, size_t from, size_t to) {
  std::string text = "{";
  for (size_t i = from; i < to; ++i) text += (i > from ? "," : "") + items[i];
  return text + "}";
}

// The whole list, and its two halves for the binary set operations.
struct Lists {
  mathexpr* all;
  mathexpr* first;
  mathexpr* second;
};

const Lists& SetCase(int elements) {
  static std::map<int, Lists> cases;
  auto found = cases.find(elements);
  if (found == cases.end()) {
    const std::vector<std::string> items = RandomReferences(elements, 2026);
    const Lists lists{Parse(ListText(items, 0, items.size())), Parse(ListText(items, 0, items.size() / 2)),
                      Parse(ListText(items, items.size() / 2, items.size()))};
    found = cases.emplace(elements, lists).first;
  }
  return found->second;
}

// A linear form of terms p_i*v_j, each variable in several terms, the list of the variables,
// and the list of the form's terms for the baseline.
struct LinearCase {
  mathexpr* form;
  mathexpr* variables;
  mathexpr* terms;
};

// termCount terms over termCount / 10 variables: 10,000 by 1,000 at full size.
const LinearCase& LinearForm(int termCount) {
  static std::map<int, LinearCase> cases;
  auto found = cases.find(termCount);
  if (found == cases.end()) {
    std::mt19937 random(7);
    const int variableCount = termCount / 10;
    std::vector<std::string> terms;
    for (int i = 0; i < termCount; ++i)
      terms.push_back("p" + std::to_string(i) + "*v" + std::to_string(random() % variableCount));
    std::string form = terms[0];
    for (int i = 1; i < termCount; ++i) form += "+" + terms[i];
    std::vector<std::string> variables;
    for (int j = 0; j < variableCount; ++j) variables.push_back("v" + std::to_string(j));
    const LinearCase linear{Parse(form), Parse(ListText(variables, 0, variables.size())),
                            Parse(ListText(terms, 0, terms.size()))};
    found = cases.emplace(termCount, linear).first;
  }
  return found->second;
}

void Consume(benchmark::State& state, mathexpr* result) {
  if (mathexpr_is_error(result) != 0) state.SkipWithError("the operation gave an error");
  state.counters["result_items"] = mathexpr_get_children(result);
  mathexpr_destroy(result);
}

// ---- 100,000 elements: baseline, then the census and the set operations.

void BM_SortBaseline(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_sort(SetCase(static_cast<int>(state.range(0))).all));
}
void BM_SymList(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_symlist(SetCase(static_cast<int>(state.range(0))).all, 63));
}
void BM_Distinct(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_distinct(SetCase(static_cast<int>(state.range(0))).all));
}
void BM_Union(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_union(SetCase(static_cast<int>(state.range(0))).first, SetCase(static_cast<int>(state.range(0))).second));
}
void BM_Intersection(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_intersection(SetCase(static_cast<int>(state.range(0))).first, SetCase(static_cast<int>(state.range(0))).second));
}
void BM_Complement(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_complement(SetCase(static_cast<int>(state.range(0))).first, SetCase(static_cast<int>(state.range(0))).second));
}

// ---- 10,000 terms by 1,000 variables: baseline, then the coefficients.

void BM_TermSortBaseline(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_sort(LinearForm(static_cast<int>(state.range(0))).terms));
}
void BM_LinCoefs(benchmark::State& state) {
  for (auto _ : state) Consume(state, mathexpr_lincoefs(LinearForm(static_cast<int>(state.range(0))).form, LinearForm(static_cast<int>(state.range(0))).variables));
}

BENCHMARK(BM_SortBaseline)->Arg(kElements / 4)->Arg(kElements)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SymList)->Arg(kElements / 4)->Arg(kElements)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Distinct)->Arg(kElements / 4)->Arg(kElements)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Union)->Arg(kElements / 4)->Arg(kElements)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Intersection)->Arg(kElements / 4)->Arg(kElements)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Complement)->Arg(kElements / 4)->Arg(kElements)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TermSortBaseline)->Arg(kTerms / 4)->Arg(kTerms)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LinCoefs)->Arg(kTerms / 4)->Arg(kTerms)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
