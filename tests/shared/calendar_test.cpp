// The calendar: day numbers at the ends of the range, leap years, weeks, frequencies, date text,
// holidays and Easter, the Chinese New Year table, time zones and free date text.
#include <gtest/gtest.h>

#include <cstring>

#include "quillon/calendar.h"

namespace quillon {
namespace {

int32_t Day(int32_t year, int32_t month, int32_t day) {
  int32_t dayNumber;
  EXPECT_TRUE(DayNumberFromCivil(year, month, day, dayNumber))
      << year << "-" << month << "-" << day;
  return dayNumber;
}

std::string Text(int32_t dayNumber, const char* format = "YYYY-MM-DD") {
  return dayNumber == kNoDate ? "none" : FormatDate(dayNumber, kNoTime, format);
}

TEST(DayNumbers, EndsOfTheRange) {
  CivilDate date;
  ASSERT_TRUE(CivilFromDayNumber(0, date));
  EXPECT_EQ(date.year, 1);
  EXPECT_EQ(date.month, 1);
  EXPECT_EQ(date.day, 1);
  EXPECT_EQ(Weekday(0), 1);
  ASSERT_TRUE(CivilFromDayNumber(kLastDayNumber, date));
  EXPECT_EQ(date.year, 9999);
  EXPECT_EQ(date.month, 12);
  EXPECT_EQ(date.day, 31);
  EXPECT_FALSE(CivilFromDayNumber(kLastDayNumber + 1, date));
  EXPECT_FALSE(CivilFromDayNumber(-1, date));
  EXPECT_EQ(Day(9999, 12, 31), kLastDayNumber);
  EXPECT_EQ(DayNumberFromYearDay(10000, 1), kNoDate);
}

// Each day number of a run of whole cycles goes to a date and back, and days follow each other.
TEST(DayNumbers, RoundTripAcrossCycleEdges) {
  const int32_t starts[] = {0, 36520, 146090, 730100, kLastDayNumber - 800};
  for (const int32_t start : starts) {
    for (int32_t day = start; day < start + 800 && day <= kLastDayNumber; ++day) {
      CivilDate date;
      ASSERT_TRUE(CivilFromDayNumber(day, date));
      YearDay yd;
      ASSERT_TRUE(YearDayFromDayNumber(day, yd));
      EXPECT_EQ(Day(date.year, date.month, date.day), day);
      EXPECT_EQ(DayNumberFromYearDay(yd.year, yd.dayOfYear), day);
    }
  }
}

TEST(DayNumbers, LeapYearsAndClamping) {
  const struct {
    int32_t year;
    bool leap;
  } years[] = {{100, false}, {200, false}, {300, false}, {400, true},
               {1900, false}, {2000, true}, {2024, true}, {2023, false}};
  for (const auto& y : years) {
    EXPECT_EQ(IsLeapYear(y.year), y.leap) << y.year;
    EXPECT_EQ(DaysInMonth(y.year, 2), y.leap ? 29 : 28) << y.year;
  }
  int32_t dayNumber;
  EXPECT_FALSE(DayNumberFromCivil(1900, 2, 29, dayNumber));
  EXPECT_EQ(dayNumber, Day(1900, 2, 28)) << "clamped to the month's end";
  EXPECT_FALSE(DayNumberFromCivil(2000, 13, 1, dayNumber));
  EXPECT_EQ(dayNumber, kNoDate);
  ASSERT_TRUE(DayNumberFromCivil(29, 1, 1, dayNumber, true));
  EXPECT_EQ(Text(dayNumber), "2029-01-01");
  ASSERT_TRUE(DayNumberFromCivil(30, 1, 1, dayNumber, true));
  EXPECT_EQ(Text(dayNumber), "1930-01-01");
}

TEST(DayNumbers, WeeksBusinessDaysAndTimes) {
  IsoWeek week;
  ASSERT_TRUE(IsoWeekFromDayNumber(Day(2021, 1, 3), week));  // a Sunday of the last week of 2020
  EXPECT_EQ(week.year, 2020);
  EXPECT_EQ(week.week, 53);
  ASSERT_TRUE(IsoWeekFromDayNumber(Day(2024, 12, 30), week));
  EXPECT_EQ(week.year, 2025);
  EXPECT_EQ(week.week, 1);
  ASSERT_TRUE(IsoWeekFromDayNumber(kLastDayNumber, week));
  EXPECT_EQ(WeekOfYear(Day(2024, 1, 8)), 2);
  EXPECT_EQ(BusinessDayOfYear(Day(2024, 1, 1)), 1);   // a Monday
  EXPECT_EQ(BusinessDayOfYear(Day(2024, 1, 14)), 10);  // a Sunday
  EXPECT_EQ(BusinessDayOfYear(Day(2000, 1, 1)), 0);   // a Saturday
  EXPECT_EQ(TimeOfDay(23, 59, 59, 999), 86399999);
  EXPECT_EQ(TimeOfDay(24, 0, 0, 0), kNoTime);
  EXPECT_EQ(FloorDivide(-1, 7).quotient, -1);
  EXPECT_EQ(FloorDivide(-1, 7).remainder, 6);
  EXPECT_EQ(FloorDivide(-14, 7).remainder, 0);
  EXPECT_EQ(Weekday(-1), 7);
}

TEST(DayNumbers, NthWeekdayOfMonth) {
  EXPECT_EQ(Text(DayNumberFromMonthWeekday(2000, 11, 4, 4)), "2000-11-23");
  EXPECT_EQ(Text(DayNumberFromMonthWeekday(2024, 5, 1, -1)), "2024-05-27");
  EXPECT_EQ(Text(DayNumberFromMonthWeekday(2024, 2, 4, 5)), "2024-02-29");
  EXPECT_EQ(Text(DayNumberFromMonthWeekday(2024, 2, 5, 5)), "none");
  EXPECT_EQ(Text(DayNumberFromMonthWeekday(2024, 2, 5, 0)), "none");
  EXPECT_EQ(Text(DayNumberFromMonthWeekday(2024, 2, 0, 30)), "none");
}

TEST(Frequencies, NamesTextsAndLetters) {
  const struct {
    const char* name;
    int32_t code;
  } names[] = {{"annual", 1},     {"Yy", 1},          {"twicemonthly", 5}, {"T", 6},
               {"ten-day", 6},    {"bi-weekly", 8},   {"daily5", 10},      {"5", 10},
               {"DAILY7", 11},    {"7", 11},          {"Min", 13},         {"msec", 15},
               {"undated", 17},   {"TWICE", 0},       {"", 0},             {"D8", 0}};
  for (const auto& n : names) EXPECT_EQ(FrequencyFromName(n.name), n.code) << n.name;
  EXPECT_STREQ(FrequencyText(10), "B");
  EXPECT_STREQ(FrequencyText(10, true), "D");
  EXPECT_STREQ(FrequencyText(7), "?");
  EXPECT_STREQ(FrequencyLetter(kFreqTwiceMonthly), ":");
  EXPECT_STREQ(FrequencyLetter(kFreqUndated), "?");
}

TEST(DateFormat, Letters) {
  const int32_t day = Day(2000, 1, 1);  // a Saturday
  const int32_t time = TimeOfDay(12, 34, 56, 789);
  const FrequencyRecord quarterly = {kFreqQuarterly};
  const struct {
    const char* format;
    const char* expected;
    const FrequencyRecord* frequency;
  } cases[] = {
      {"YYYY-MM-DD hh:MI:SS.SSS", "2000-01-01 12:34:56.789", nullptr},
      {"Weekday, Mon day yyyy", "Saturday, Jan 1st 2000", nullptr},
      {"WDY wdy MONTH month M m", "SAT sat JANUARY january J j", nullptr},
      {"yy/mm/dd HM am A", "0/1/1 12 pm P", nullptr},
      {"YY/MM/DD", "00/01/01", nullptr},
      {"ss.s SS.SS", "56.7 56.78", nullptr},
      {"[Q]Q QR Qr S W WW DDD BBB", "Q1 I i 1 6 01 001 000", nullptr},
      {"YYYY:P F f", "2000:1 Q q", &quarterly},
      {"F", ":", nullptr},
  };
  for (const auto& c : cases)
    EXPECT_EQ(FormatDate(day, time, c.format, c.frequency), c.expected) << c.format;
  EXPECT_EQ(FormatDate(day, time, "F", &quarterly, false), ":") << "F needs the upper-case flag";
  EXPECT_EQ(FormatDate(Day(2024, 3, 22), kNoTime, "ddd dd day [day]"), "82 22 22nd day");
  EXPECT_EQ(FormatDate(Day(2024, 3, 13), kNoTime, "day"), "13th");
}

TEST(DateFormat, FailuresAndTruncation) {
  const int32_t day = Day(2000, 1, 1);
  char buffer[12];
  int32_t length = -1;
  const struct {
    const char* format;
    int32_t time;
    int32_t size;
    bool ok;
    const char* expected;
  } cases[] = {
      {"YYYY-MM-DD", kNoTime, 11, true, "2000-01-01"},
      {"YYYY-MM-DD Month", kNoTime, 12, false, "2000-01-01 "},  // cut before the name
      {"YYYY-MM-DD", kNoTime, 10, false, "2000-01-"},
      {"YYYY X", kNoTime, 12, false, "2000 "},                 // unknown letter
      {"YYYY P", kNoTime, 12, false, "2000 "},                 // P without a record
      {"YYYY hh", kNoTime, 12, false, "2000 "},                // time letter without a time
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FormatDate(day, c.time, c.format, buffer, c.size, &length, nullptr, true), c.ok)
        << c.format;
    EXPECT_STREQ(buffer, c.expected) << c.format;
    EXPECT_EQ(length, static_cast<int32_t>(std::strlen(c.expected))) << c.format;
  }
  EXPECT_EQ(FormatDate(-3, 5, "YYYY"), "172800005") << "undated count";
  EXPECT_EQ(FormatDate(-2, kNoTime, "YYYY"), "?");
  EXPECT_EQ(FormatDate(kLastDayNumber + 1, kNoTime, "YYYY"), "");
}

TEST(DateFormat, DefaultByWidth) {
  const int32_t minute = TimeOfDay(9, 5, 0, 0);
  const int32_t second = TimeOfDay(9, 5, 7, 0);
  const int32_t milli = TimeOfDay(9, 5, 7, 1);
  EXPECT_EQ(DefaultDateFormat(10, kNoTime), "YYYY-MM-DD");
  EXPECT_EQ(DefaultDateFormat(9, kNoTime), "YYYY-MM");
  EXPECT_EQ(DefaultDateFormat(4, kNoTime), "YY-MM");
  EXPECT_EQ(DefaultDateFormat(15, minute), "YYYY-MM-DD");
  EXPECT_EQ(DefaultDateFormat(16, second), "YYYY-MM-DD hh:MI");
  EXPECT_EQ(DefaultDateFormat(19, second), "YYYY-MM-DD hh:MI:SS");
  EXPECT_EQ(DefaultDateFormat(22, milli), "YYYY-MM-DD hh:MI:SS");
  EXPECT_EQ(DefaultDateFormat(23, milli), "YYYY-MM-DD hh:MI:SS.SSS");
  EXPECT_EQ(DefaultDateFormat(12, minute), "YYYY-MM-DD");
}

TEST(Holidays, NamesRulesObservedAndOffsets) {
  const struct {
    const char* text;
    int32_t year;
    const char* expected;
  } cases[] = {
      {"thanks", 2000, "2000-11-23"},
      {"Thanksgiving", 2000, "2000-11-23"},
      {"thanks(1)", 2000, "2000-11-24"},
      {"christmas~", 2021, "2021-12-24"},  // Saturday to Friday
      {"christmas~", 2022, "2022-12-26"},  // Sunday to Monday
      {"christmas~", 2000, "2000-12-25"},
      {"  easter (-2) ", 2000, "2000-04-21"},
      {"easter", 2000, "2000-04-23"},
      {"easterlegacy", 2000, "2000-04-23"},
      {"ortheaster", 2000, "2000-04-23"},  // the Orthodox date, 30 April, has no name
      {"ortheastex", 2000, "2000-04-23"},
      {"cny", 2024, "2024-02-10"},
      {"cny", 1644, "none"},
      {"Nov 4 Thu", 2000, "2000-11-23"},
      {"may -1 monday", 2024, "2024-05-27"},
      {"Jul -4", 2024, "2024-07-04"},
      {"jan 1~", 2022, "2021-12-31"},
      {"easter x", 2000, "none"},
      {"christmas(", 2000, "none"},
      {"Foo", 2000, "none"},
      {"christmas(7)", 9999, "none"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Text(HolidayDayNumber(c.text, c.year)), c.expected) << c.text << " " << c.year;
}

TEST(Easter, ThreeReckonings) {
  const struct {
    int32_t year;
    const char* western;
    const char* legacy;
    const char* orthodox;
  } cases[] = {
      {2000, "2000-04-23", "2000-04-23", "2000-04-30"},
      {2024, "2024-03-31", "2024-03-31", "2024-05-05"},
      {2019, "2019-04-21", "2019-04-21", "2019-04-28"},
      // The full moon falls on a Sunday: the older table moves a week on. Before 1900 the
      // Orthodox date stays in the Julian calendar.
      {1818, "1818-03-22", "1818-03-29", "1818-04-14"},
      {2038, "2038-04-25", "2038-04-25", "2038-04-25"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Text(WesternEaster(c.year)), c.western) << c.year;
    EXPECT_EQ(Text(LegacyEaster(c.year)), c.legacy) << c.year;
    EXPECT_EQ(Text(OrthodoxEaster(c.year)), c.orthodox) << c.year;
  }
  EXPECT_EQ(WesternEaster(0), kNoDate);
}

TEST(ChineseNewYear, TableEndsAndKnownYears) {
  const struct {
    int32_t year;
    const char* expected;
  } cases[] = {
      {1644, "none"},       {1645, "1645-01-28"}, {1646, "1646-02-16"}, {1649, "1649-02-11"},
      {1900, "1900-01-31"}, {1949, "1949-01-29"}, {2000, "2000-02-05"}, {2020, "2020-01-25"},
      {2023, "2023-01-22"}, {2641, "2641-02-02"}, {2643, "2643-02-11"}, {2644, "2644-01-31"},
      {2645, "none"},
  };
  for (const auto& c : cases) EXPECT_EQ(Text(ChineseNewYear(c.year)), c.expected) << c.year;
}

TEST(TimeZones, NamesAndNumericForms) {
  const struct {
    const char* text;
    bool fourDigits;
    int32_t expected;
  } cases[] = {
      {"WEST", false, 1},       {"est", false, -300},     {"ACDT", false, 630},
      {"+05:30", false, 330},   {"-08:00", false, -480},  {"-0800", true, -480},
      {"-0800", false, kNoTimeZone}, {"+05:60", false, kNoTimeZone},
      {"UT", false, kNoTimeZone},    {"ESTX", false, kNoTimeZone},
  };
  for (const auto& c : cases)
    EXPECT_EQ(TimeZoneOffset(c.text, c.fourDigits), c.expected) << c.text;
}

TEST(ReadDateText, DatesTimesAndFailures) {
  const DateTextOptions monthFirst = {.order = DateOrder::MonthDayYear};
  const DateTextOptions dayFirst = {.order = DateOrder::DayMonthYear, .blanksSeparate = false};
  const struct {
    const char* text;
    DateTextOptions options;
    bool ok;
    const char* date;
    int32_t time;
  } cases[] = {
      {"2024-03-05", {}, true, "2024-03-05", kNoTime},
      {"5 Mar 2024", {}, true, "2024-03-05", kNoTime},
      {"march 5th 2024 10:30pm", {}, true, "2024-03-05", TimeOfDay(22, 30, 0, 0)},
      {"2024-03-05T10:30:15", {}, true, "2024-03-05", TimeOfDay(10, 30, 15, 0)},
      {"03/05/24", monthFirst, true, "2024-03-05", kNoTime},
      {"05.03.1999", dayFirst, true, "1999-03-05", kNoTime},
      {"05 03 1999", dayFirst, false, "none", kNoTime},
      {"12am", {}, true, "none", 0},
      {"12 pm", {}, true, "none", TimeOfDay(12, 0, 0, 0)},
      {"Mar 2024", {}, true, "2024-03-01", kNoTime},
      {"2024 Oct 9:05", {}, true, "2024-10-01", TimeOfDay(9, 5, 0, 0)},
      {"20240305", {}, true, "2024-03-05", kNoTime},
      {"2024-03/05", {}, false, "none", kNoTime},
      {"March 5rd 2024", {}, false, "none", kNoTime},
      {"13pm", {}, false, "none", kNoTime},
      {"", {}, false, "none", kNoTime},
  };
  for (const auto& c : cases) {
    int32_t day, time;
    EXPECT_EQ(ReadDateText(c.text, day, time, c.options), c.ok) << c.text;
    if (!c.ok) continue;
    EXPECT_EQ(Text(day), c.date) << c.text;
    EXPECT_EQ(time, c.time) << c.text;
  }
}

}  // namespace
}  // namespace quillon
