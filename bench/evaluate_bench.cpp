// Evaluation (mode 3) and rendering of a sum of n distinct terms, n = 1,000, 10,000 and
// 100,000. The smallest n is the baseline: the figure to read is the per-term time of each n
// against it, which the driver's sort lets grow no faster than log n in comparisons. Once the
// terms no longer fit in the caches, every comparison waits on memory; the same run therefore
// also times a plain sort of n named records scattered on the heap, whose growth shows what the
// machine itself adds for that size.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <memory>
#include <cstdio>
#include <string>
#include <vector>

#include "quillon.h"

namespace {

// v1*w1 + v2*w2 + ... in a shuffled order, so that the sort has work to do.
std::string MakeSum(int n) {
  std::vector<int> order(n);
  for (int i = 0; i < n; ++i) order[i] = static_cast<int>((static_cast<int64_t>(i) * 7919) % n);
  std::string text;
  for (int i = 0; i < n; ++i) {
    if (i > 0) text += " + ";
    text += "v" + std::to_string(order[i]) + "*w" + std::to_string(order[i] % 13);
  }
  return text;
}

// Seconds for one evaluation and rendering, the best of `runs`.
double TimeOnce(mathsymtable* table, const std::string& text, int runs) {
  double best = 1e30;
  std::string buffer(1 << 24, '\0');
  for (int r = 0; r < runs; ++r) {
    mathexpr* e = mathexpr_create(table, text.c_str());
    const auto start = std::chrono::steady_clock::now();
    mathexpr_evaluate(e, 3);
    int32_t length = 0;
    mathexpr_as_text(e, buffer.data(), static_cast<int32_t>(buffer.size()), &length, 0);
    const auto stop = std::chrono::steady_clock::now();
    mathexpr_destroy(e);
    best = std::min(best, std::chrono::duration<double>(stop - start).count());
  }
  return best;
}

// Per-element seconds of a stable sort, by name, of n separately allocated records of the size
// of a symbol, the best of `runs`.
double MachineSortPerElement(int n, int runs) {
  struct Record {
    char name[320];
  };
  std::vector<std::unique_ptr<Record>> records;
  for (int i = 0; i < n; ++i) {
    records.push_back(std::make_unique<Record>());
    std::snprintf(records.back()->name, sizeof Record::name, "v%d", static_cast<int>((static_cast<int64_t>(i) * 7919) % n));
  }
  double best = 1e30;
  for (int r = 0; r < runs; ++r) {
    std::vector<const Record*> order;
    for (const auto& record : records) order.push_back(record.get());
    const auto start = std::chrono::steady_clock::now();
    std::stable_sort(order.begin(), order.end(),
                     [](const Record* a, const Record* b) { return std::strcmp(a->name, b->name) < 0; });
    const auto stop = std::chrono::steady_clock::now();
    best = std::min(best, std::chrono::duration<double>(stop - start).count());
  }
  return best / n;
}

}  // namespace

int main() {
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  const int sizes[] = {1000, 10000, 100000};
  double baseline = 0, machineBaseline = 0;
  std::printf("%10s %14s %16s %10s %22s\n", "terms", "seconds", "ns per term", "ratio", "plain sort ratio");
  for (int n : sizes) {
    const int runs = n >= 100000 ? 3 : 7;
    const double seconds = TimeOnce(table, MakeSum(n), runs);
    const double perTerm = seconds / n * 1e9;
    const double machine = MachineSortPerElement(n, runs);
    if (baseline == 0) baseline = perTerm, machineBaseline = machine;
    std::printf("%10d %14.6f %16.1f %10.2f %22.2f\n", n, seconds, perTerm, perTerm / baseline, machine / machineBaseline);
  }
  std::printf("log2(n) grows by %.2f from 1,000 to 100,000 terms\n", std::log2(100000.0) / std::log2(1000.0));
  mathsymtable_destroy(table);
  return 0;
}
