// Fuzz target: any text that parses is evaluated in a mode chosen by the input and printed,
// differentiated by a variable chosen by the input, and computed on the stack as it stands and
// once more prepared by @subexpr. Every rule and the evaluator must take whatever tree the
// language can write, including calls of operators with too few or too many arguments, without
// a crash, a leak or a sanitizer report.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "growth_filter.h"
#include "quillon.h"

namespace {

void Print(mathexpr* e, uint32_t spaced) {
  int32_t length = 0;
  char buffer[256];
  mathexpr_as_text(e, buffer, sizeof buffer, &length, spaced);
}

// A tree needs at most one cell per leaf, and its temporaries and slots are numbered below its
// node count. Wildcards written in the text carry any index, so such texts are not computed.
void ComputeOnTheStack(mathexpr* e, const std::string& text) {
  if (text.find('#') != std::string::npos) return;
  int32_t nodes = 0;
  uint32_t attributes = 0, symbolBits = 0;
  mathexpr_get_attributes(e, &nodes, &attributes, &symbolBits);
  std::vector<double> stack(static_cast<size_t>(nodes) + 1, 0.0);
  const std::vector<double> inputs(static_cast<size_t>(nodes) + 1, 1.5);
  mathexpr_stackeval(e, stack.data(), inputs.data());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static mathsymtable* everything = mathsymtable_create(nullptr, 1);
  // Expansion is left out, as are texts that ask for it (see growth_filter.h).
  static const uint32_t modes[] = {3, 1, 2, 4, 7, 0x10003, 0x40003, 0x80003, 0x100000};
  // Plain, lagged and listed variables, and a variable that is a function call.
  static const char* const variables[] = {"x", "y", "a", "x(-1)", "@list(x, y, 2, x(-1))", "@sin(x)", "3", "#1"};
  if (size == 0) return 0;
  const uint32_t mode = modes[data[0] % (sizeof modes / sizeof modes[0])];
  const char* variable = variables[(data[0] >> 4) % (sizeof variables / sizeof variables[0])];
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (AsksForCombinatorialGrowth(text)) return 0;
  mathexpr* e = mathexpr_create(everything, text.c_str());
  mathexpr* v = mathexpr_create(everything, variable);
  mathexpr* d = mathexpr_deriv(e, v);
  Print(d, 0);
  mathexpr_destroy(d);
  mathexpr_destroy(v);
  mathexpr_evaluate(e, mode);
  Print(e, data[0] & 1);
  mathexpr_get_priority(e);
  ComputeOnTheStack(e, text);
  mathexpr_destroy(e);
  mathexpr* prepared = mathexpr_create(everything, ("@subexpr(" + text + ")").c_str());
  mathexpr_evaluate(prepared, 3);
  ComputeOnTheStack(prepared, text);
  mathexpr_destroy(prepared);
  return 0;
}
