// Holiday text: a named holiday or a month-and-weekday rule, then "~" for the observed weekday
// and "(n)" for a shift of n days.
#include "quillon/calendar.h"
#include "shared/calendar_names.h"
#include "shared/names.h"

namespace quillon {

namespace {

// Reads the holiday text from left to right.
class HolidayReader {
 public:
  HolidayReader(std::string_view text, int32_t year) : text_(text), year_(year) {}

  int32_t Read();

 private:
  int32_t NamedHoliday();
  int32_t RuleHoliday();
  bool Shift(int32_t& days);
  bool TakeName(std::string_view name);
  bool TakeSignedNumber(int32_t maxDigits, int32_t& value);
  void SkipBlanks() {
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
  }
  bool Take(char c) {
    if (at_ >= text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  size_t Left() const { return text_.size() - at_; }

  std::string_view text_;
  int32_t year_;
  size_t at_ = 0;
};

bool HolidayReader::TakeName(std::string_view name) {
  if (Left() < name.size()) return false;
  for (size_t i = 0; i < name.size(); ++i)
    if (LowerByte(text_[at_ + i]) != name[i]) return false;
  at_ += name.size();
  return true;
}

// The Orthodox rule has no name that reaches it: "ortheaster" is matched by its first nine
// letters and gives Western Easter; hosts have always seen that, so it stays.
int32_t HolidayReader::NamedHoliday() {
  if (TakeName("easterlegacy")) return LegacyEaster(year_);
  if (Left() >= 6 && TakeName("ortheaste")) {
    if (at_ < text_.size()) ++at_;
    return WesternEaster(year_);
  }
  if (TakeName("easter")) return WesternEaster(year_);
  if (TakeName("christmas")) return DayNumberFromMonthWeekday(year_, 12, 0, 25);
  if (TakeName("thanks")) {
    TakeName("giving");
    return DayNumberFromMonthWeekday(year_, 11, 4, 4);
  }
  if (TakeName("cny")) return ChineseNewYear(year_);
  return RuleHoliday();
}

// month [sign n] [weekday]: without a weekday n is the day of the month and its sign is dropped.
int32_t HolidayReader::RuleHoliday() {
  int32_t length;
  const int32_t month = MatchMonthName(text_.substr(at_), length);
  if (month == 0) return kNoDate;
  at_ += length;
  SkipBlanks();
  int32_t n = 1;
  const bool hasNumber = at_ < text_.size() && (text_[at_] == '+' || text_[at_] == '-' ||
                                                 (text_[at_] >= '0' && text_[at_] <= '9'));
  if (hasNumber && !TakeSignedNumber(2, n)) return kNoDate;
  SkipBlanks();
  const int32_t weekday = MatchWeekdayName(text_.substr(at_), length);
  at_ += length;
  if (weekday == 0 && n < 0) n = -n;
  return DayNumberFromMonthWeekday(year_, month, weekday, n);
}

bool HolidayReader::TakeSignedNumber(int32_t maxDigits, int32_t& value) {
  const bool negative = Take('-');
  if (!negative) Take('+');
  int32_t digits = 0;
  value = 0;
  while (at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9') {
    if (++digits > maxDigits) return false;
    value = value * 10 + (text_[at_++] - '0');
  }
  if (negative) value = -value;
  return digits > 0;
}

bool HolidayReader::Shift(int32_t& days) {
  days = 0;
  SkipBlanks();
  if (!Take('(')) return true;
  SkipBlanks();
  if (!TakeSignedNumber(7, days)) return false;
  SkipBlanks();
  return Take(')');
}

int32_t HolidayReader::Read() {
  SkipBlanks();
  int32_t day = NamedHoliday();
  if (day == kNoDate) return kNoDate;
  SkipBlanks();
  if (Take('~')) {
    const int32_t weekday = Weekday(day);
    if (weekday == 6) --day;
    if (weekday == 7) ++day;
  }
  int32_t days;
  if (!Shift(days)) return kNoDate;
  SkipBlanks();
  if (at_ != text_.size()) return kNoDate;
  day += days;
  return day >= 0 && day <= kLastDayNumber ? day : kNoDate;
}

}  // namespace

int32_t HolidayDayNumber(std::string_view text, int32_t year) {
  return HolidayReader(text, year).Read();
}

}  // namespace quillon
