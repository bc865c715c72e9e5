// A date literal as the lexer reads it and a DateENode holds it: year, period, subperiod.
#pragma once

#include <cstdint>

namespace quillon {

struct DateValue {
  int32_t year;
  int32_t period;
  int32_t subperiod;  // -1 when absent
  char separator;     // the character of the literal: 1995Q3 has 'Q', 1995:3:14 has ':'
};

}  // namespace quillon
