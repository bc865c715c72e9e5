// Day numbers: leap years, civil dates both ways, weekdays, weeks, business days, times of day
// and floor division. Names of months and weekdays live in calendar_names.cpp.
#include "quillon/calendar.h"
#include "shared/day_numbers.h"

namespace quillon {

namespace {

constexpr int32_t kDaysIn400Years = 146097;
constexpr int32_t kDaysIn100Years = 36524;
constexpr int32_t kDaysIn4Years = 1461;

// First day of each month, counted from 1, and the day after the year's last.
constexpr int32_t kMonthStartCommon[13] = {1,   32,  60,  91,  121, 152, 182,
                                           213, 244, 274, 305, 335, 366};
constexpr int32_t kMonthStartLeap[13] = {1,   32,  61,  92,  122, 153, 183,
                                         214, 245, 275, 306, 336, 367};

const int32_t* MonthStarts(int32_t year) {
  return IsLeapYear(year) ? kMonthStartLeap : kMonthStartCommon;
}

int32_t DaysBeforeYear(int32_t year) {
  const int32_t y = year - 1;
  return y * 365 + y / 4 - y / 100 + y / 400;
}

}  // namespace

bool IsLeapYear(int32_t year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int32_t DaysInMonth(int32_t year, int32_t month) {
  if (month < 1 || month > 12) return 0;
  const int32_t* starts = MonthStarts(year);
  return starts[month] - starts[month - 1];
}

// The last block of a cycle is a day longer than the others, so a count that reaches the number
// of blocks belongs to the last one.
YearDay YearDayOfValid(int32_t dayNumber) {
  int32_t rest = dayNumber;
  const int32_t cycles = rest / kDaysIn400Years;
  rest %= kDaysIn400Years;
  int32_t centuries = rest / kDaysIn100Years;
  if (centuries == 4) centuries = 3;
  rest -= centuries * kDaysIn100Years;
  int32_t blocks = rest / kDaysIn4Years;
  if (blocks == 25) blocks = 24;
  rest -= blocks * kDaysIn4Years;
  int32_t years = rest / 365;
  if (years == 4) years = 3;
  rest -= years * 365;
  return {.year = ((cycles * 4 + centuries) * 25 + blocks) * 4 + 1 + years, .dayOfYear = rest + 1};
}

CivilDate CivilOfValid(int32_t dayNumber) {
  const YearDay yd = YearDayOfValid(dayNumber);
  const int32_t* starts = MonthStarts(yd.year);
  int32_t month = 1;
  while (yd.dayOfYear >= starts[month]) ++month;
  return {.year = yd.year, .month = month, .day = yd.dayOfYear - starts[month - 1] + 1};
}

bool IsValidDayNumber(int32_t dayNumber) { return dayNumber >= 0 && dayNumber <= kLastDayNumber; }

int32_t DayNumberFromYearDay(int32_t year, int32_t dayOfYear) {
  if (year < kFirstYear || year > kLastYear) return kNoDate;
  if (dayOfYear < 1 || dayOfYear >= MonthStarts(year)[12]) return kNoDate;
  return DaysBeforeYear(year) + dayOfYear - 1;
}

bool YearDayFromDayNumber(int32_t dayNumber, YearDay& out) {
  if (!IsValidDayNumber(dayNumber)) return false;
  out = YearDayOfValid(dayNumber);
  return true;
}

bool CivilFromDayNumber(int32_t dayNumber, CivilDate& out) {
  if (!IsValidDayNumber(dayNumber)) return false;
  out = CivilOfValid(dayNumber);
  return true;
}

bool DayNumberFromCivil(int32_t year, int32_t month, int32_t day, int32_t& dayNumber,
                        bool twoDigitYear) {
  if (twoDigitYear && year >= 0 && year < 100)
    year += year < kTwoDigitYearPivot ? 2000 : 1900;
  dayNumber = kNoDate;
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1) return false;
  const int32_t monthDays = DaysInMonth(year, month);
  const int32_t kept = day > monthDays ? monthDays : day;
  dayNumber = DaysBeforeYear(year) + MonthStarts(year)[month - 1] + kept - 2;
  return kept == day;
}

int32_t DayNumberFromMonthWeekday(int32_t year, int32_t month, int32_t weekday, int32_t n) {
  if (n == 0 || weekday < 0 || weekday > 7) return kNoDate;
  const int32_t monthDays = DaysInMonth(year, month);
  int32_t first;
  if (!DayNumberFromCivil(year, month, 1, first)) return kNoDate;
  if (weekday == 0) return n >= 1 && n <= monthDays ? first + n - 1 : kNoDate;
  int32_t dayOfMonth;
  if (n > 0) {
    dayOfMonth = 1 + (weekday - Weekday(first) + 7) % 7 + (n - 1) * 7;
  } else {
    const int32_t last = first + monthDays - 1;
    dayOfMonth = monthDays - (Weekday(last) - weekday + 7) % 7 + (n + 1) * 7;
  }
  if (dayOfMonth < 1 || dayOfMonth > monthDays) return kNoDate;
  return first + dayOfMonth - 1;
}

int32_t Weekday(int32_t dayNumber) { return FloorDivide(dayNumber, 7).remainder + 1; }

int32_t WeekOfYear(int32_t dayNumber) {
  YearDay yd;
  if (!YearDayFromDayNumber(dayNumber, yd)) return 0;
  return (yd.dayOfYear - 1) / 7 + 1;
}

// The week belongs to the year of its Thursday, which may lie a day or three past the last date.
bool IsoWeekFromDayNumber(int32_t dayNumber, IsoWeek& out) {
  if (!IsValidDayNumber(dayNumber)) return false;
  const YearDay thursday = YearDayOfValid(dayNumber + 4 - Weekday(dayNumber));
  out = {.year = thursday.year, .week = (thursday.dayOfYear - 1) / 7 + 1};
  return true;
}

int32_t BusinessDayOfYear(int32_t dayNumber) {
  YearDay yd;
  if (!YearDayFromDayNumber(dayNumber, yd)) return 0;
  const int32_t firstOfYear = dayNumber - yd.dayOfYear + 1;
  int32_t count = (yd.dayOfYear / 7) * 5;
  for (int32_t day = firstOfYear + (yd.dayOfYear / 7) * 7; day <= dayNumber; ++day)
    if (Weekday(day) <= 5) ++count;
  return count;
}

int32_t TimeOfDay(int32_t hour, int32_t minute, int32_t second, int32_t millisecond) {
  if (hour < 0 || hour >= 24 || minute < 0 || minute >= 60 || second < 0 || second >= 60)
    return kNoTime;
  if (millisecond < 0 || millisecond >= 1000) return kNoTime;
  return ((hour * 60 + minute) * 60 + second) * 1000 + millisecond;
}

FloorQuotient FloorDivide(int32_t dividend, int32_t divisor) {
  int32_t quotient = dividend / divisor;
  int32_t remainder = dividend % divisor;
  if (remainder != 0 && ((remainder < 0) != (divisor < 0))) {
    --quotient;
    remainder += divisor;
  }
  return {.quotient = quotient, .remainder = remainder};
}

}  // namespace quillon
