// Fuzz target: any text that parses is evaluated in a mode chosen by the input and printed, and
// differentiated by a variable chosen by the input. Every rule must take whatever tree the
// language can write, including calls of operators with too few or too many arguments, without
// a crash, a leak or a sanitizer report.
#include <cstddef>
#include <cstdint>
#include <string>

#include "quillon.h"

namespace {

void Print(mathexpr* e, uint32_t spaced) {
  int32_t length = 0;
  char buffer[256];
  mathexpr_as_text(e, buffer, sizeof buffer, &length, spaced);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static mathsymtable* everything = mathsymtable_create(nullptr, 1);
  // Expansion is left out: its result grows with the multinomial count by design (a power of
  // a sum of 28 terms to the 5th has 201,376 products), which is slow rather than wrong, and
  // expansion and factoring together undo each other for ever. So is @derivx, whose list of n
  // derivatives has n^2 / 2 variables in it by design.
  static const uint32_t modes[] = {3, 1, 2, 4, 7, 0x10003, 0x40003, 0x80003, 0x100000};
  // Plain, lagged and listed variables, and a variable that is a function call.
  static const char* const variables[] = {"x", "y", "a", "x(-1)", "@list(x, y, 2, x(-1))", "@sin(x)", "3", "#1"};
  if (size == 0) return 0;
  const uint32_t mode = modes[data[0] % (sizeof modes / sizeof modes[0])];
  const char* variable = variables[(data[0] >> 4) % (sizeof variables / sizeof variables[0])];
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (text.find("expand") != std::string::npos || text.find("derivx") != std::string::npos) return 0;
  mathexpr* e = mathexpr_create(everything, text.c_str());
  mathexpr* v = mathexpr_create(everything, variable);
  mathexpr* d = mathexpr_deriv(e, v);
  Print(d, 0);
  mathexpr_destroy(d);
  mathexpr_destroy(v);
  mathexpr_evaluate(e, mode);
  Print(e, data[0] & 1);
  mathexpr_get_priority(e);
  mathexpr_destroy(e);
  return 0;
}
