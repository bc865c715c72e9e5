// Conversions between numbers and text, in the forms the lexer, the printer and the host use.
#pragma once

#include <cstdint>

#include "shared/shared_text.h"

namespace quillon {

// Flags of TextToInteger and TextToDouble.
enum NumberTextFlag : uint32_t {
  NumParenthesisMinus = 4,     // "(12)" reads as -12
  NumDollar = 8,               // admits a "$" before the digits
  NumDecimalComma = 32,        // "," is the decimal mark
  NumThousands = 0x8000,       // admits "," between groups of three digits
};

// Radix 10, blank-padded on the left to width (0 for none).
SharedText IntegerToText(int32_t value, int32_t width);
// printf's %.*g with the given precision.
SharedText DoubleToText(double value, int32_t precision);

// Both return the number of bytes consumed, 0 when no number stands there.
int32_t TextToInteger(int32_t* result, const char* bytes, int32_t n, int32_t radix, uint32_t flags);
// Accepts d and D as exponent letters beside e and E. Only the format letter 'g' is used.
int32_t TextToDouble(double* result, const char* bytes, int32_t n, char format, uint32_t flags,
                     int32_t precision);

}  // namespace quillon
