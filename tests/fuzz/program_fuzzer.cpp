// Fuzz target: any text that parses is compiled into a batch program and run over a number of
// rows chosen by the input, so that short and full blocks both occur. Whatever tree the language
// can write must compile and run without a crash, a leak or a sanitizer report.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "growth_filter.h"
#include "quillon.h"
#include "quillon_program.h"

namespace {

// Slots written in the text may ask for any number of columns; beyond this one the run is left out.
constexpr int32_t kMostColumns = 4096;

void Run(const quillon_program* p, int64_t rows) {
  const int32_t inputCount = quillon_program_input_count(p), outputCount = quillon_program_output_count(p);
  if (inputCount > kMostColumns || outputCount > kMostColumns) return;
  const std::vector<double> column(static_cast<size_t>(rows), 1.5);
  const std::vector<const double*> inputs(static_cast<size_t>(inputCount), column.data());
  std::vector<std::vector<double>> results(static_cast<size_t>(outputCount),
                                           std::vector<double>(static_cast<size_t>(rows)));
  std::vector<double*> outputs;
  for (auto& result : results) outputs.push_back(result.data());
  quillon_program_evaluate(p, rows, inputs.data(), outputs.data());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static mathsymtable* everything = mathsymtable_create(nullptr, 1);
  if (size == 0) return 0;
  const int64_t rows = 1 + data[0] % 300;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (AsksForCombinatorialGrowth(text)) return 0;
  mathexpr* e = mathexpr_create(everything, text.c_str());
  quillon_program* p = quillon_program_create(e);
  mathexpr_destroy(e);
  if (p != nullptr) Run(p, rows);
  quillon_program_destroy(p);
  return 0;
}
