// Names of months and weekdays, shared by date text, holiday rules and the date reader.
#include "shared/calendar_names.h"

#include "shared/names.h"

namespace quillon {

const char* const kMonthNames[12] = {"January", "February", "March",     "April",
                                     "May",     "June",     "July",      "August",
                                     "September", "October", "November", "December"};

const char* const kWeekdayNames[7] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                      "Friday", "Saturday", "Sunday"};

namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool SameLetters(std::string_view letters, std::string_view name) {
  if (letters.size() != name.size()) return false;
  for (size_t i = 0; i < letters.size(); ++i)
    if (LowerByte(letters[i]) != LowerByte(name[i])) return false;
  return true;
}

int32_t MatchName(std::string_view text, const char* const* names, int32_t count,
                  int32_t& length) {
  size_t run = 0;
  while (run < text.size() && IsLetter(text[run])) ++run;
  const std::string_view letters = text.substr(0, run);
  for (int32_t i = 0; i < count; ++i) {
    const std::string_view name = names[i];
    if (SameLetters(letters, name) || SameLetters(letters, name.substr(0, 3))) {
      length = static_cast<int32_t>(run);
      return i + 1;
    }
  }
  length = 0;
  return 0;
}

}  // namespace

int32_t MatchMonthName(std::string_view text, int32_t& length) {
  return MatchName(text, kMonthNames, 12, length);
}

int32_t MatchWeekdayName(std::string_view text, int32_t& length) {
  return MatchName(text, kWeekdayNames, 7, length);
}

}  // namespace quillon
