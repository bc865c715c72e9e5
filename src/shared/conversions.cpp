// Number and text conversions; see conversions.h.
#include "shared/conversions.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace quillon {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'z') return c - 'a' + 10;
  if (c >= 'A' && c <= 'Z') return c - 'A' + 10;
  return 99;
}

// Reads digits of radix into *value, saturating at all ones; returns the count read.
int32_t ReadDigits(const char* bytes, int32_t n, int32_t radix, uint32_t* value, bool* overflow) {
  int32_t i = 0;
  for (; i < n && DigitValue(bytes[i]) < radix; ++i) {
    const uint64_t next = static_cast<uint64_t>(*value) * radix + DigitValue(bytes[i]);
    if (next > 0xFFFFFFFFull) *overflow = true;
    *value = *overflow ? 0xFFFFFFFFu : static_cast<uint32_t>(next);
  }
  return i;
}

// Reads the digit run with optional thousands groups; returns the count read, -1 on a bad group.
int32_t ReadNumberBody(const char* bytes, int32_t n, int32_t radix, uint32_t flags, uint32_t* value,
                       bool* overflow, bool* any) {
  int32_t i = 0;
  while (i < n && bytes[i] == '0') ++i;
  *any = i > 0;
  const int32_t lead = ReadDigits(bytes + i, n - i, radix, value, overflow);
  *any = *any || lead > 0;
  i += lead;
  if ((flags & NumThousands) == 0 || i >= n || bytes[i] != ',') return i;
  if (lead > 3) return -1;
  while (i < n && bytes[i] == ',') {
    const int32_t group = ReadDigits(bytes + i + 1, std::min(n - i - 1, 3), radix, value, overflow);
    if (group != 3 || (i + 4 < n && DigitValue(bytes[i + 4]) < radix)) return -1;
    i += 4;
  }
  return i;
}

}  // namespace

SharedText IntegerToText(int32_t value, int32_t width) {
  char text[24];
  const int n = std::snprintf(text, sizeof text, "%*d", width > 11 ? 11 : width, value);
  return SharedText(text, n);
}

SharedText DoubleToText(double value, int32_t precision) {
  char text[32];
  int n = std::snprintf(text, sizeof text, "%.*g", precision, value);
  if (n > 24) n = 24;
  return SharedText(text, n);
}

int32_t TextToInteger(int32_t* result, const char* bytes, int32_t n, int32_t radix, uint32_t flags) {
  int32_t i = 0;
  while (i < n && IsBlank(bytes[i])) ++i;
  bool negative = false, parenthesis = false;
  if (i < n && (bytes[i] == '-' || bytes[i] == '+')) {
    negative = bytes[i++] == '-';
  } else if (i < n && bytes[i] == '(' && (flags & NumParenthesisMinus) != 0) {
    negative = parenthesis = true;
    ++i;
  }
  while (i < n && IsBlank(bytes[i])) ++i;
  if (i < n && bytes[i] == '$' && (flags & NumDollar) != 0) ++i;
  uint32_t value = 0;
  bool overflow = false, any = false;
  const int32_t body = ReadNumberBody(bytes + i, n - i, radix, flags, &value, &overflow, &any);
  if (body < 0 || !any) return 0;
  i += body;
  if (parenthesis && i < n && bytes[i] == ')') ++i;
  if (negative)
    *result = value >= 0x80000000u ? INT32_MIN : -static_cast<int32_t>(value);
  else
    *result = value > 0x7FFFFFFFu ? INT32_MAX : static_cast<int32_t>(value);
  return i;
}

int32_t TextToDouble(double* result, const char* bytes, int32_t n, char, uint32_t flags, int32_t) {
  const char mark = (flags & NumDecimalComma) != 0 ? ',' : '.';
  int32_t i = 0;
  while (i < n && IsBlank(bytes[i])) ++i;
  std::string text;
  if (i < n && (bytes[i] == '+' || bytes[i] == '-')) text += bytes[i++];
  int32_t digits = 0;
  for (; i < n && bytes[i] >= '0' && bytes[i] <= '9'; ++i, ++digits) text += bytes[i];
  if (i < n && bytes[i] == mark) {
    text += '.';
    for (++i; i < n && bytes[i] >= '0' && bytes[i] <= '9'; ++i, ++digits) text += bytes[i];
  }
  if (digits == 0) return 0;
  if (i < n && (bytes[i] == 'e' || bytes[i] == 'E' || bytes[i] == 'd' || bytes[i] == 'D')) {
    int32_t j = i + 1;
    std::string exponent = "e";
    if (j < n && (bytes[j] == '+' || bytes[j] == '-')) exponent += bytes[j++];
    const int32_t start = j;
    for (; j < n && bytes[j] >= '0' && bytes[j] <= '9'; ++j) exponent += bytes[j];
    if (j > start) {
      text += exponent;
      i = j;
    }
  }
  *result = std::strtod(text.c_str(), nullptr);
  return i;
}

}  // namespace quillon
