// Fuzz target: random texts are substituted by an equation list chosen by the input, serve as
// the equation list of a fixed expression, and are searched and cut down by dependency. The
// rules must take whatever the language can write there (cycles, lags, items that are no
// equations, wrong argument counts) without a crash, a hang, a leak or a sanitizer report.
#include <cstddef>
#include <cstdint>
#include <string>

#include "growth_filter.h"
#include "quillon.h"

namespace {

// Chains, cycles through functions and through bare symbols, lags, stray items, no equations.
const char* const kEquationLists[] = {
    "@list(@eq(x, y + 1), @eq(y, z(-1) * x(2)))",
    "@list(@eq(x, y), @eq(y, x), @eq(z, log(x)))",
    "@eq(x, x * 2)",
    "@list(@eq(x, log(y)), 3, @eq(y, @obs(x)))",
    "@list(@eq(log(x), y), @eq(x = y, z))",
    "@list()",
};

const char* const kPatterns[] = {"#1", "log(#1)", "#1 + #2", "#2 ^ #1", "#1 = x", "x"};

void Consume(mathexpr* e) {
  int32_t length = 0;
  char buffer[256];
  mathexpr_as_text(e, buffer, sizeof buffer, &length, 0);
  mathexpr_destroy(e);
}

mathexpr* Evaluated(mathsymtable* table, const std::string& text) {
  mathexpr* e = mathexpr_create(table, text.c_str());
  mathexpr_evaluate(e, 3);
  return e;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static mathsymtable* everything = mathsymtable_create(nullptr, 1);
  if (size == 0) return 0;
  const std::string list = kEquationLists[data[0] % (sizeof kEquationLists / sizeof kEquationLists[0])];
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (AsksForCombinatorialGrowth(text)) return 0;
  Consume(Evaluated(everything, "@replace_expr(" + text + ", " + list + ")"));
  Consume(Evaluated(everything, "@replace_expr(x + y(-1) * log(z), " + text + ")"));
  Consume(Evaluated(everything, "@replace_expr_ex(" + text + ", " + list + ")"));
  Consume(Evaluated(everything, "@eqkeep(" + text + ", @list(x, y))"));
  mathexpr* e = mathexpr_create(everything, text.c_str());
  mathexpr* pattern = mathexpr_create(everything, kPatterns[(data[0] >> 3) % (sizeof kPatterns / sizeof kPatterns[0])]);
  Consume(mathexpr_find(e, pattern, data[0] & 1));
  mathexpr_destroy(pattern);
  mathexpr_destroy(e);
  return 0;
}
