// Fuzz target: any bytes as the text of a formula. Parsing must give a tree or an error value,
// never a crash, a leak or a sanitizer report.
#include <cstddef>
#include <cstdint>
#include <string>

#include "quillon.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static mathsymtable* everything = mathsymtable_create(nullptr, 1);
  const std::string text(reinterpret_cast<const char*>(data), size);
  mathexpr* e = mathexpr_create_ex(everything, text.c_str(), size & 1);
  mathexpr* first = mathexpr_first_child(e);
  while (mathexpr_next_child(&first)) {
  }
  mathexpr_destroy(first);
  mathexpr_destroy(e);
  return 0;
}
