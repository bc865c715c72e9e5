// Frequency codes: their texts, their letters in date text, the names they are known by, and the
// number of a date's period within its year.
#include <string>

#include "quillon/calendar.h"
#include "shared/day_numbers.h"
#include "shared/names.h"

namespace quillon {

namespace {

struct FrequencyRow {
  int32_t code;
  const char* text;
  const char* letter;  // in date text, where ":" stands for "none of its own"
};

const FrequencyRow kFrequencies[] = {
    {.code = kFreqAnnual, .text = "A", .letter = "A"},
    {.code = kFreqSemiannual, .text = "S", .letter = "S"},
    {.code = kFreqQuarterly, .text = "Q", .letter = "Q"},
    {.code = kFreqMonthly, .text = "M", .letter = "M"},
    {.code = kFreqTwiceMonthly, .text = "BM", .letter = ":"},
    {.code = kFreqTenDay, .text = "T", .letter = "T"},
    {.code = kFreqFortnightly, .text = "F", .letter = "F"},
    {.code = kFreqWeekly, .text = "W", .letter = "W"},
    {.code = kFreqBusinessDaily, .text = "B", .letter = "B"},
    {.code = kFreqDaily, .text = "D", .letter = "D"},
    {.code = kFreqHourly, .text = "H", .letter = "H"},
    {.code = kFreqMinute, .text = "Min", .letter = ":"},
    {.code = kFreqSecond, .text = "Sec", .letter = ":"},
    {.code = kFreqMillisecond, .text = "Msec", .letter = ":"},
    {.code = kFreqNoLetter, .text = ":", .letter = ":"},
    {.code = kFreqUndated, .text = "U", .letter = "?"},
};

struct FrequencyName {
  const char* name;  // upper case; the test is case-blind
  int32_t code;
};

// Note "T" alone is ten-day; twice a month is spelt out in full.
const FrequencyName kFrequencyNames[] = {
    {.name = "A", .code = kFreqAnnual},            {.name = "Y", .code = kFreqAnnual},
    {.name = "YY", .code = kFreqAnnual},           {.name = "ANNUAL", .code = kFreqAnnual},
    {.name = "YEAR", .code = kFreqAnnual},         {.name = "YEARLY", .code = kFreqAnnual},
    {.name = "S", .code = kFreqSemiannual},        {.name = "SEMIANNUAL", .code = kFreqSemiannual},
    {.name = "Q", .code = kFreqQuarterly},         {.name = "QTR", .code = kFreqQuarterly},
    {.name = "QUARTER", .code = kFreqQuarterly},   {.name = "QUARTERLY", .code = kFreqQuarterly},
    {.name = "M", .code = kFreqMonthly},           {.name = "MM", .code = kFreqMonthly},
    {.name = "MON", .code = kFreqMonthly},         {.name = "MONTH", .code = kFreqMonthly},
    {.name = "MONTHLY", .code = kFreqMonthly},     {.name = "BM", .code = kFreqTwiceMonthly},
    {.name = "SM", .code = kFreqTwiceMonthly},     {.name = "BIMONTHLY", .code = kFreqTwiceMonthly},
    {.name = "TWICEMONTHLY", .code = kFreqTwiceMonthly},
    {.name = "T", .code = kFreqTenDay},            {.name = "TD", .code = kFreqTenDay},
    {.name = "TM", .code = kFreqTenDay},           {.name = "TENDAY", .code = kFreqTenDay},
    {.name = "TEN-DAY", .code = kFreqTenDay},      {.name = "F", .code = kFreqFortnightly},
    {.name = "FN", .code = kFreqFortnightly},      {.name = "FORTNIGHT", .code = kFreqFortnightly},
    {.name = "FORTNIGHTLY", .code = kFreqFortnightly},
    {.name = "BIWEEKLY", .code = kFreqFortnightly},
    {.name = "BI-WEEKLY", .code = kFreqFortnightly},
    {.name = "W", .code = kFreqWeekly},            {.name = "WW", .code = kFreqWeekly},
    {.name = "WEEK", .code = kFreqWeekly},         {.name = "WEEKLY", .code = kFreqWeekly},
    {.name = "B", .code = kFreqBusinessDaily},     {.name = "BUSINESS", .code = kFreqBusinessDaily},
    {.name = "5", .code = kFreqBusinessDaily},     {.name = "D5", .code = kFreqBusinessDaily},
    {.name = "DD5", .code = kFreqBusinessDaily},   {.name = "DAY5", .code = kFreqBusinessDaily},
    {.name = "DAILY5", .code = kFreqBusinessDaily},
    {.name = "7", .code = kFreqDaily},             {.name = "D", .code = kFreqDaily},
    {.name = "D7", .code = kFreqDaily},            {.name = "DD", .code = kFreqDaily},
    {.name = "DD7", .code = kFreqDaily},           {.name = "DAY", .code = kFreqDaily},
    {.name = "DAY7", .code = kFreqDaily},          {.name = "DAILY", .code = kFreqDaily},
    {.name = "DAILY7", .code = kFreqDaily},        {.name = "H", .code = kFreqHourly},
    {.name = "HH", .code = kFreqHourly},           {.name = "HOUR", .code = kFreqHourly},
    {.name = "HOURLY", .code = kFreqHourly},       {.name = "MI", .code = kFreqMinute},
    {.name = "MIN", .code = kFreqMinute},          {.name = "MINUTE", .code = kFreqMinute},
    {.name = "MINUTELY", .code = kFreqMinute},     {.name = "SS", .code = kFreqSecond},
    {.name = "SEC", .code = kFreqSecond},          {.name = "SECOND", .code = kFreqSecond},
    {.name = "SECONDLY", .code = kFreqSecond},     {.name = "MSEC", .code = kFreqMillisecond},
    {.name = "U", .code = kFreqUndated},           {.name = "UNDATED", .code = kFreqUndated},
};

constexpr size_t kNameCut = 32;

const FrequencyRow* RowOf(int32_t code) {
  for (const FrequencyRow& row : kFrequencies)
    if (row.code == code) return &row;
  return nullptr;
}

}  // namespace

const char* FrequencyText(int32_t code, bool businessAsD) {
  if (code == kFreqBusinessDaily && businessAsD) return "D";
  const FrequencyRow* row = RowOf(code);
  return row != nullptr ? row->text : "?";
}

const char* FrequencyLetter(int32_t code) {
  const FrequencyRow* row = RowOf(code);
  return row != nullptr ? row->letter : "?";
}

int32_t FrequencyFromName(std::string_view name) {
  std::string upper(name.substr(0, kNameCut));
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  for (const FrequencyName& row : kFrequencyNames)
    if (upper == row.name) return row.code;
  return 0;
}

int32_t PeriodInYear(int32_t code, int32_t dayNumber, int32_t time) {
  if (!IsValidDayNumber(dayNumber)) return 0;
  const CivilDate date = CivilOfValid(dayNumber);
  const int32_t dayOfYear = YearDayOfValid(dayNumber).dayOfYear;
  const int32_t hour = time >= 0 ? time / 3600000 : 0;
  const int32_t minute = time >= 0 ? time / 60000 : 0;
  const int32_t second = time >= 0 ? time / 1000 : 0;
  switch (code) {
    case kFreqAnnual: return 1;
    case kFreqSemiannual: return (date.month - 1) / 6 + 1;
    case kFreqQuarterly: return (date.month - 1) / 3 + 1;
    case kFreqMonthly: return date.month;
    case kFreqTwiceMonthly: return (date.month - 1) * 2 + (date.day > 15 ? 2 : 1);
    case kFreqTenDay: return (date.month - 1) * 3 + (date.day > 20 ? 3 : (date.day - 1) / 10 + 1);
    case kFreqFortnightly: return (dayOfYear - 1) / 14 + 1;
    case kFreqWeekly: return (dayOfYear - 1) / 7 + 1;
    case kFreqBusinessDaily: return BusinessDayOfYear(dayNumber);
    case kFreqDaily: return dayOfYear;
    case kFreqHourly: return (dayOfYear - 1) * 24 + hour + 1;
    case kFreqMinute: return (dayOfYear - 1) * 1440 + minute + 1;
    case kFreqSecond: return (dayOfYear - 1) * 86400 + second + 1;
    default: return 0;
  }
}

}  // namespace quillon
