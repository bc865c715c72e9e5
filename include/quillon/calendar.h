// The calendar of the shared layer: day numbers and civil dates, weeks and business days, times
// of day, frequency codes, date text by format letters, holidays, Easter, time zones and free
// date text.
// Calls report failure by false or by -1 and never throw.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

// ---- Day numbers and civil dates --------------------------------------------------------------
// A day number counts days of the proleptic Gregorian calendar: 0 is Monday 1 January of year 1,
// kLastDayNumber is 31 December 9999. A time of day counts milliseconds since midnight.

inline constexpr int32_t kNoDate = -1;
inline constexpr int32_t kNoTime = -1;
inline constexpr int32_t kLastDayNumber = 3652058;
inline constexpr int32_t kFirstYear = 1;
inline constexpr int32_t kLastYear = 9999;
// A two-digit year below the pivot is 20yy, else 19yy.
inline constexpr int32_t kTwoDigitYearPivot = 30;

struct CivilDate {
  int32_t year;
  int32_t month;  // 1 to 12
  int32_t day;    // 1 to 31
};

struct YearDay {
  int32_t year;
  int32_t dayOfYear;  // 1 to 366
};

struct IsoWeek {
  int32_t year;  // the year the week belongs to, which may differ from the date's
  int32_t week;  // 1 to 53
};

bool IsLeapYear(int32_t year);
// Days in a month of a year; 0 for a month outside 1 to 12.
int32_t DaysInMonth(int32_t year, int32_t month);

// kNoDate outside years 1 to 9999 or days of the year outside the year.
int32_t DayNumberFromYearDay(int32_t year, int32_t dayOfYear);
// False, leaving out untouched, for a day number outside 0 to kLastDayNumber.
bool YearDayFromDayNumber(int32_t dayNumber, YearDay& out);
bool CivilFromDayNumber(int32_t dayNumber, CivilDate& out);
// The day number of a civil date. A day past the month's end is clamped to the month's last day,
// stored, and reported false; a bad year or month stores kNoDate. With twoDigitYear, a year
// below 100 is placed around kTwoDigitYearPivot.
bool DayNumberFromCivil(int32_t year, int32_t month, int32_t day, int32_t& dayNumber,
                        bool twoDigitYear = false);

// Weekday 0 takes n as a plain day of the month. Weekday 1 (Monday) to 7 (Sunday) with n above 0
// is the nth such weekday of the month, with n below 0 the nth counted from the month's end.
// kNoDate for n of 0 or a day the month does not have.
int32_t DayNumberFromMonthWeekday(int32_t year, int32_t month, int32_t weekday, int32_t n);

// 1 Monday to 7 Sunday.
int32_t Weekday(int32_t dayNumber);
// (day of year - 1) / 7 + 1; 0 for a bad day number.
int32_t WeekOfYear(int32_t dayNumber);
// Week 1 holds the year's first Thursday. False for a bad day number.
bool IsoWeekFromDayNumber(int32_t dayNumber, IsoWeek& out);
// Monday-to-Friday days from 1 January up to and including this day; 0 for a bad day number.
int32_t BusinessDayOfYear(int32_t dayNumber);

// kNoTime unless hour, minute, second and millisecond are below 24, 60, 60 and 1000.
int32_t TimeOfDay(int32_t hour, int32_t minute, int32_t second, int32_t millisecond);

// Division rounding toward minus infinity, so the remainder has the divisor's sign; for day
// arithmetic before the calendar's start. The divisor must not be 0.
struct FloorQuotient {
  int32_t quotient;
  int32_t remainder;
};
FloorQuotient FloorDivide(int32_t dividend, int32_t divisor);

// ---- Frequencies ------------------------------------------------------------------------------

enum FrequencyCode : int32_t {
  kFreqAnnual = 1,
  kFreqSemiannual = 2,
  kFreqQuarterly = 3,
  kFreqMonthly = 4,
  kFreqTwiceMonthly = 5,
  kFreqTenDay = 6,
  kFreqFortnightly = 8,
  kFreqWeekly = 9,
  kFreqBusinessDaily = 10,
  kFreqDaily = 11,
  kFreqHourly = 12,
  kFreqMinute = 13,
  kFreqSecond = 14,
  kFreqMillisecond = 15,
  kFreqNoLetter = 16,
  kFreqUndated = 17,
};

// "A", "S", "Q", "M", "BM", "T", "F", "W", "B" ("D" with businessAsD), "D", "H", "Min", "Sec",
// "Msec", ":", "U"; "?" for any other code.
const char* FrequencyText(int32_t code, bool businessAsD = false);
// The one-letter form used in date text; ":" for codes without a letter of their own.
const char* FrequencyLetter(int32_t code);
// The code of an accepted name in any case (cut to 32 characters first); 0 when not accepted.
int32_t FrequencyFromName(std::string_view name);
// The number of the period of a date within its year at a frequency, counted from 1; 0 for a
// frequency without periods in a year or a bad date.
int32_t PeriodInYear(int32_t code, int32_t dayNumber, int32_t time);

// What the letters P and F of a date format read.
struct FrequencyRecord {
  int32_t code;
};

// ---- Date text --------------------------------------------------------------------------------

// Writes a date and time by the format letters (YYYY, MM, Mon, DD, hh, MI, SS.SSS, [text], ...)
// into buffer, zero-terminated, and stores the text length. A negative day number prints as an
// undated count of milliseconds. Fails on an unknown letter, on P without a record, on time
// letters without a time, and when the buffer runs out; then the output is cut back to the last
// complete item. frequency may be null. F gives the record's letter only with upperCase set.
bool FormatDate(int32_t dayNumber, int32_t time, std::string_view format, char* buffer,
                int32_t bufferSize, int32_t* length, const FrequencyRecord* frequency,
                bool upperCase);
// The same into a string, with room for 256 characters; the empty text on failure.
std::string FormatDate(int32_t dayNumber, int32_t time, std::string_view format,
                       const FrequencyRecord* frequency = nullptr, bool upperCase = true);

// The fullest default format that fits in width places: a date form, and with a time a blank and
// a time form as precise as the time needs.
std::string DefaultDateFormat(int32_t width, int32_t time);

// ---- Holidays and Easter ----------------------------------------------------------------------
// Each gives a day number, or kNoDate for a year without the date or past kLastDayNumber.

int32_t WesternEaster(int32_t year);
// The older table of full moons, with Easter the first Sunday after.
int32_t LegacyEaster(int32_t year);
int32_t OrthodoxEaster(int32_t year);
// Chinese New Year, known for the years 1645 to 2644.
int32_t ChineseNewYear(int32_t year);

// A holiday in a year by name ("christmas", "thanks", "thanksgiving", "easter", "easterlegacy",
// "cny") or by rule ("Nov 4 Thu", "May -1 Mon", "Jul 4"), then optionally "~" for the observed
// weekday and "(n)" for n days more.
int32_t HolidayDayNumber(std::string_view text, int32_t year);

// ---- Time zones -------------------------------------------------------------------------------

inline constexpr int32_t kNoTimeZone = INT32_MIN;

// Minutes east of a zone name ("EST") or of "+hh:mm" (and "+hhmm" with fourDigits);
// kNoTimeZone when unknown.
int32_t TimeZoneOffset(std::string_view text, bool fourDigits = false);

// ---- Free date text ---------------------------------------------------------------------------

enum class DateOrder { YearMonthDay, MonthDayYear, DayMonthYear };

struct DateTextOptions {
  DateOrder order = DateOrder::YearMonthDay;  // for all-numeric dates without a 4-digit year
  bool blanksSeparate = true;                 // blanks may separate date fields
};

// Reads "2024-03-05", "5 Mar 2024", "March 5th 2024 10:30pm", "2024-03-05T10:30:15", "3pm", ...
// Stores kNoDate or kNoTime for a part the text does not give; false when the text is no date.
bool ReadDateText(std::string_view text, int32_t& dayNumber, int32_t& time,
                  const DateTextOptions& options = {});

}  // namespace quillon
