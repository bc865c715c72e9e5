// Easter in its three reckonings, and Chinese New Year by its table.
#include "quillon/calendar.h"
#include "shared/chinese_new_year_table.h"

namespace quillon {

namespace {

// Days from 1 March of the paschal full moon, by (year + 1) mod 19; past 31 it falls in April.
constexpr int32_t kLegacyFullMoon[19] = {27, 45, 34, 23, 42, 31, 49, 39, 28, 47,
                                         36, 25, 44, 33, 22, 41, 30, 48, 38};

// Easter dates may lie past the last valid day of year 9999.
int32_t Checked(int32_t dayNumber) {
  return dayNumber >= 0 && dayNumber <= kLastDayNumber ? dayNumber : kNoDate;
}

int32_t DayNumberOf(int32_t year, int32_t month, int32_t day) {
  int32_t dayNumber;
  return DayNumberFromCivil(year, month, day, dayNumber) ? dayNumber : kNoDate;
}

bool InYears(int32_t year) { return year >= kFirstYear && year <= kLastYear; }

}  // namespace

int32_t WesternEaster(int32_t year) {
  if (!InYears(year)) return kNoDate;
  const int32_t a = year % 19, b = year / 100, c = year % 100, d = b / 4, e = b % 4;
  const int32_t g = (8 * b + 13) / 25;
  const int32_t h = (19 * a + b - d - g + 15) % 30;
  const int32_t i = c / 4, k = c % 4;
  const int32_t l = (32 + 2 * e + 2 * i - h - k) % 7;
  const int32_t m = (a + 11 * h + 19 * l) / 433;
  const int32_t month = (h + l - 7 * m + 90) / 25;
  const int32_t day = (h + l - 7 * m + 33 * month + 19) % 32;
  return Checked(DayNumberOf(year, month, day));
}

int32_t LegacyEaster(int32_t year) {
  if (!InYears(year)) return kNoDate;
  const int32_t fromMarch = kLegacyFullMoon[(year + 1) % 19];
  const int32_t fullMoon =
      fromMarch > 31 ? DayNumberOf(year, 4, fromMarch - 31) : DayNumberOf(year, 3, fromMarch);
  // Weekday 7 is Sunday: step to the first Sunday strictly after the full moon.
  return Checked(fullMoon + 7 - Weekday(fullMoon) % 7);
}

// The Julian date is read as a Gregorian one, then moved by the calendars' 13-day gap from 1900.
int32_t OrthodoxEaster(int32_t year) {
  if (!InYears(year)) return kNoDate;
  const int32_t a = year % 19;
  const int32_t d = (19 * a + 15) % 30;
  const int32_t e = (2 * (year % 4) + 4 * (year % 7) + 34 - d) % 7;
  const int32_t month = (d + e + 114) / 31;
  const int32_t day = (d + e + 114) % 31 + 1;
  return Checked(DayNumberOf(year, month, day) + (year >= 1900 ? 13 : 0));
}

int32_t ChineseNewYear(int32_t year) {
  const int32_t index = year - kChineseNewYearFirstYear;
  if (index < 0 || index >= kChineseNewYearYears) return kNoDate;
  return DayNumberFromYearDay(year, kChineseNewYearDay[index]);
}

}  // namespace quillon
