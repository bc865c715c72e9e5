// Names of functions and symbols: at most 301 bytes, compared without regard to case.
#pragma once

#include <cstdint>

namespace quillon {

// A name fills at most this many bytes; one of exactly this length has no terminator.
inline constexpr int32_t kNameLimit = 301;

// Lower-cases A to Z only, as the default locale does; other bytes stay.
inline char LowerByte(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

// Case-blind comparison over at most kNameLimit bytes; true when the names are the same.
inline bool NameEqual(const char* a, const char* b) {
  for (int32_t i = 0; i < kNameLimit; ++i) {
    if (LowerByte(a[i]) != LowerByte(b[i])) return false;
    if (a[i] == 0) return true;
  }
  return true;
}

// Copies a name into a record's field of kNameLimit bytes, cut at the limit; null counts as empty.
inline void CopyName(char (&field)[kNameLimit], const char* name) {
  int32_t i = 0;
  if (name != nullptr)
    for (; i < kNameLimit && name[i] != 0; ++i) field[i] = name[i];
  if (i < kNameLimit) field[i] = 0;
}

}  // namespace quillon

namespace quillon {

// Case-blind order of two names: -1, 0 or 1 at the first differing byte, 0 at a NUL or after
// kNameLimit bytes.
inline int NameCompare(const char* x, const char* y) {
  for (int32_t i = 0; i < kNameLimit; ++i) {
    const char a = LowerByte(x[i]), b = LowerByte(y[i]);
    if (a != b) return a < b ? -1 : 1;
    if (a == 0) return 0;
  }
  return 0;
}

}  // namespace quillon
