// English names of months and weekdays, and their matching at the start of a text.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillon {

extern const char* const kMonthNames[12];   // "January" to "December"
extern const char* const kWeekdayNames[7];  // "Monday" to "Sunday"

// A month (1 to 12) or weekday (1 to 7) named by the letters at the start of text, in full or by
// their first three, in any case; 0 when the letters name none. length takes the letters read.
int32_t MatchMonthName(std::string_view text, int32_t& length);
int32_t MatchWeekdayName(std::string_view text, int32_t& length);

}  // namespace quillon
