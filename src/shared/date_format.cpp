// Date text by format letters, and the default format for a width. Items are matched by the
// longest letters first; upper-case letters pad numbers with zeros, lower-case ones don't.
#include <cstdio>

#include "quillon/calendar.h"
#include "shared/calendar_names.h"
#include "shared/day_numbers.h"

namespace quillon {

namespace {

enum class Item {
  Year, Year2, MonthNumber, MonthName, MonthShort, MonthInitial, DayOfMonth, DayOfYear,
  DayOrdinal, BusinessDay, Quarter, QuarterRoman, Half, WeekOfYear, WeekdayNumber, WeekdayShort,
  WeekdayName, Hour, Hour12, Minute, Second, AmPm, Period, Frequency
};

// Padded and Plain for numbers; Title, Upper and Lower for names and letters.
enum class Style { Padded, Plain, Title, Upper, Lower };

struct FormatItem {
  const char* letters;
  Item item;
  Style style;
  int32_t width;  // zero padding of Padded numbers
};

// Longer letters stand before their prefixes: the first row that matches is the item.
const FormatItem kFormatItems[] = {
    {.letters = "YYYY", .item = Item::Year, .style = Style::Padded, .width = 4},
    {.letters = "YEAR", .item = Item::Year, .style = Style::Padded, .width = 4},
    {.letters = "yyyy", .item = Item::Year, .style = Style::Plain, .width = 0},
    {.letters = "year", .item = Item::Year, .style = Style::Plain, .width = 0},
    {.letters = "YY", .item = Item::Year2, .style = Style::Padded, .width = 2},
    {.letters = "yy", .item = Item::Year2, .style = Style::Plain, .width = 0},
    {.letters = "Month", .item = Item::MonthName, .style = Style::Title, .width = 0},
    {.letters = "MONTH", .item = Item::MonthName, .style = Style::Upper, .width = 0},
    {.letters = "month", .item = Item::MonthName, .style = Style::Lower, .width = 0},
    {.letters = "Mon", .item = Item::MonthShort, .style = Style::Title, .width = 0},
    {.letters = "MON", .item = Item::MonthShort, .style = Style::Upper, .width = 0},
    {.letters = "mon", .item = Item::MonthShort, .style = Style::Lower, .width = 0},
    {.letters = "MM", .item = Item::MonthNumber, .style = Style::Padded, .width = 2},
    {.letters = "mm", .item = Item::MonthNumber, .style = Style::Plain, .width = 0},
    {.letters = "MI", .item = Item::Minute, .style = Style::Padded, .width = 2},
    {.letters = "mi", .item = Item::Minute, .style = Style::Plain, .width = 0},
    {.letters = "M", .item = Item::MonthInitial, .style = Style::Upper, .width = 0},
    {.letters = "m", .item = Item::MonthInitial, .style = Style::Lower, .width = 0},
    {.letters = "DDD", .item = Item::DayOfYear, .style = Style::Padded, .width = 3},
    {.letters = "ddd", .item = Item::DayOfYear, .style = Style::Plain, .width = 0},
    {.letters = "day", .item = Item::DayOrdinal, .style = Style::Plain, .width = 0},
    {.letters = "DD", .item = Item::DayOfMonth, .style = Style::Padded, .width = 2},
    {.letters = "dd", .item = Item::DayOfMonth, .style = Style::Plain, .width = 0},
    {.letters = "BBB", .item = Item::BusinessDay, .style = Style::Padded, .width = 3},
    {.letters = "bbb", .item = Item::BusinessDay, .style = Style::Plain, .width = 0},
    {.letters = "QR", .item = Item::QuarterRoman, .style = Style::Upper, .width = 0},
    {.letters = "Qr", .item = Item::QuarterRoman, .style = Style::Lower, .width = 0},
    {.letters = "Q", .item = Item::Quarter, .style = Style::Padded, .width = 1},
    {.letters = "q", .item = Item::Quarter, .style = Style::Plain, .width = 0},
    {.letters = "SS", .item = Item::Second, .style = Style::Padded, .width = 2},
    {.letters = "ss", .item = Item::Second, .style = Style::Plain, .width = 0},
    {.letters = "S", .item = Item::Half, .style = Style::Padded, .width = 1},
    {.letters = "s", .item = Item::Half, .style = Style::Plain, .width = 0},
    {.letters = "Weekday", .item = Item::WeekdayName, .style = Style::Title, .width = 0},
    {.letters = "WEEKDAY", .item = Item::WeekdayName, .style = Style::Upper, .width = 0},
    {.letters = "weekday", .item = Item::WeekdayName, .style = Style::Lower, .width = 0},
    {.letters = "Wdy", .item = Item::WeekdayShort, .style = Style::Title, .width = 0},
    {.letters = "WDY", .item = Item::WeekdayShort, .style = Style::Upper, .width = 0},
    {.letters = "wdy", .item = Item::WeekdayShort, .style = Style::Lower, .width = 0},
    {.letters = "WW", .item = Item::WeekOfYear, .style = Style::Padded, .width = 2},
    {.letters = "ww", .item = Item::WeekOfYear, .style = Style::Plain, .width = 0},
    {.letters = "W", .item = Item::WeekdayNumber, .style = Style::Padded, .width = 1},
    {.letters = "w", .item = Item::WeekdayNumber, .style = Style::Plain, .width = 0},
    {.letters = "HH", .item = Item::Hour, .style = Style::Padded, .width = 2},
    {.letters = "hh", .item = Item::Hour, .style = Style::Plain, .width = 0},
    {.letters = "HM", .item = Item::Hour12, .style = Style::Padded, .width = 2},
    {.letters = "hm", .item = Item::Hour12, .style = Style::Plain, .width = 0},
    {.letters = "A", .item = Item::AmPm, .style = Style::Upper, .width = 0},
    {.letters = "a", .item = Item::AmPm, .style = Style::Lower, .width = 0},
    {.letters = "PPP", .item = Item::Period, .style = Style::Padded, .width = 3},
    {.letters = "PP", .item = Item::Period, .style = Style::Padded, .width = 2},
    {.letters = "P", .item = Item::Period, .style = Style::Padded, .width = 1},
    {.letters = "ppp", .item = Item::Period, .style = Style::Plain, .width = 0},
    {.letters = "pp", .item = Item::Period, .style = Style::Plain, .width = 0},
    {.letters = "p", .item = Item::Period, .style = Style::Plain, .width = 0},
    {.letters = "F", .item = Item::Frequency, .style = Style::Upper, .width = 0},
    {.letters = "f", .item = Item::Frequency, .style = Style::Lower, .width = 0},
};

const char* const kRomanQuarters[4] = {"I", "II", "III", "IV"};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

const FormatItem* MatchItem(std::string_view format) {
  for (const FormatItem& row : kFormatItems)
    if (format.starts_with(row.letters)) return &row;
  return nullptr;
}

std::string Number(int64_t value, const FormatItem& row) {
  char text[24];
  const int width = row.style == Style::Padded ? row.width : 0;
  std::snprintf(text, sizeof text, "%0*lld", width, static_cast<long long>(value));
  return text;
}

std::string Styled(std::string_view name, Style style) {
  std::string out(name);
  for (size_t i = 0; i < out.size(); ++i) {
    const bool upper = style == Style::Upper || (style == Style::Title && i == 0);
    char& c = out[i];
    if (upper && c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    if (!upper && c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return out;
}

const char* OrdinalSuffix(int32_t n) {
  if (n % 100 >= 11 && n % 100 <= 13) return "th";
  switch (n % 10) {
    case 1: return "st";
    case 2: return "nd";
    case 3: return "rd";
    default: return "th";
  }
}

// What one item reads from: the date's parts, worked out once.
struct DateParts {
  int32_t dayNumber;
  int32_t time;
  CivilDate civil;
  int32_t dayOfYear;
  const FrequencyRecord* frequency;
  bool upperCase;
};

bool NeedsTime(Item item) {
  return item == Item::Hour || item == Item::Hour12 || item == Item::Minute ||
         item == Item::Second || item == Item::AmPm;
}

// The text of one item, or false when the item cannot be given for this date.
bool RenderItem(const FormatItem& row, const DateParts& d, std::string& out) {
  if (NeedsTime(row.item) && d.time < 0) return false;
  const int32_t hour = d.time / 3600000;
  switch (row.item) {
    case Item::Year: out = Number(d.civil.year, row); return true;
    case Item::Year2: out = Number(d.civil.year % 100, row); return true;
    case Item::MonthNumber: out = Number(d.civil.month, row); return true;
    case Item::MonthName: out = Styled(kMonthNames[d.civil.month - 1], row.style); return true;
    case Item::MonthShort:
      out = Styled(std::string_view(kMonthNames[d.civil.month - 1]).substr(0, 3), row.style);
      return true;
    case Item::MonthInitial:
      out = Styled(std::string_view(kMonthNames[d.civil.month - 1]).substr(0, 1), row.style);
      return true;
    case Item::DayOfMonth: out = Number(d.civil.day, row); return true;
    case Item::DayOfYear: out = Number(d.dayOfYear, row); return true;
    case Item::DayOrdinal: out = Number(d.civil.day, row) + OrdinalSuffix(d.civil.day); return true;
    case Item::BusinessDay: out = Number(BusinessDayOfYear(d.dayNumber), row); return true;
    case Item::Quarter: out = Number((d.civil.month - 1) / 3 + 1, row); return true;
    case Item::QuarterRoman:
      out = Styled(kRomanQuarters[(d.civil.month - 1) / 3], row.style);
      return true;
    case Item::Half: out = Number((d.civil.month - 1) / 6 + 1, row); return true;
    case Item::WeekOfYear: out = Number((d.dayOfYear - 1) / 7 + 1, row); return true;
    case Item::WeekdayNumber: out = Number(Weekday(d.dayNumber), row); return true;
    case Item::WeekdayShort:
      out = Styled(std::string_view(kWeekdayNames[Weekday(d.dayNumber) - 1]).substr(0, 3),
                   row.style);
      return true;
    case Item::WeekdayName:
      out = Styled(kWeekdayNames[Weekday(d.dayNumber) - 1], row.style);
      return true;
    case Item::Hour: out = Number(hour, row); return true;
    case Item::Hour12: out = Number(hour % 12 == 0 ? 12 : hour % 12, row); return true;
    case Item::Minute: out = Number(d.time / 60000 % 60, row); return true;
    case Item::Second: out = Number(d.time / 1000 % 60, row); return true;
    case Item::AmPm: out = Styled(hour < 12 ? "A" : "P", row.style); return true;
    case Item::Period:
      if (d.frequency == nullptr) return false;
      out = Number(PeriodInYear(d.frequency->code, d.dayNumber, d.time), row);
      return true;
    case Item::Frequency:
      out = d.frequency != nullptr && d.upperCase
                ? Styled(FrequencyLetter(d.frequency->code), row.style)
                : std::string(":");
      return true;
  }
  return false;
}

// Letters that extend the item before them: the fraction behind seconds, the "M" behind A or a.
size_t RenderSuffix(const FormatItem& row, std::string_view rest, const DateParts& d,
                    std::string& out) {
  if (row.item == Item::AmPm && !rest.empty() && (rest[0] == 'M' || rest[0] == 'm')) {
    out += rest[0];
    return 1;
  }
  if (row.item != Item::Second || rest.size() < 2 || rest[0] != '.') return 0;
  const char s = row.style == Style::Padded ? 'S' : 's';
  size_t digits = 0;
  while (digits < 3 && 1 + digits < rest.size() && rest[1 + digits] == s) ++digits;
  if (digits == 0) return 0;
  static const int32_t kDivisors[4] = {0, 100, 10, 1};
  char text[8];
  std::snprintf(text, sizeof text, ".%0*d", static_cast<int>(digits),
                d.time % 1000 / kDivisors[digits]);
  out += text;
  return 1 + digits;
}

// Output into the caller's buffer, one whole item at a time.
class ItemWriter {
 public:
  ItemWriter(char* buffer, int32_t size) : buffer_(buffer), room_(size - 1) {}
  bool Put(std::string_view piece) {
    if (static_cast<int64_t>(used_) + static_cast<int64_t>(piece.size()) > room_) return false;
    piece.copy(buffer_ + used_, piece.size());
    used_ += static_cast<int32_t>(piece.size());
    return true;
  }
  bool Finish(int32_t* length, bool ok) {
    buffer_[used_] = 0;
    if (length != nullptr) *length = used_;
    return ok;
  }

 private:
  char* buffer_;
  int32_t room_;
  int32_t used_ = 0;
};

bool FormatUndated(int32_t dayNumber, int32_t time, ItemWriter& writer, int32_t* length) {
  if (time < 0) return writer.Finish(length, writer.Put("?"));
  const int64_t count = (-1 - static_cast<int64_t>(dayNumber)) * 86400000 + time;
  return writer.Finish(length, writer.Put(std::to_string(count)));
}

}  // namespace

bool FormatDate(int32_t dayNumber, int32_t time, std::string_view format, char* buffer,
                int32_t bufferSize, int32_t* length, const FrequencyRecord* frequency,
                bool upperCase) {
  if (length != nullptr) *length = 0;
  if (buffer == nullptr || bufferSize < 1) return false;
  ItemWriter writer(buffer, bufferSize);
  if (dayNumber < 0) return FormatUndated(dayNumber, time, writer, length);
  if (dayNumber > kLastDayNumber) return writer.Finish(length, false);
  const DateParts parts = {.dayNumber = dayNumber,
                           .time = time,
                           .civil = CivilOfValid(dayNumber),
                           .dayOfYear = YearDayOfValid(dayNumber).dayOfYear,
                           .frequency = frequency,
                           .upperCase = upperCase};
  size_t at = 0;
  while (at < format.size()) {
    std::string piece;
    const std::string_view rest = format.substr(at);
    if (rest[0] == '[') {
      const size_t close = rest.find(']');
      piece = rest.substr(1, close == std::string_view::npos ? std::string_view::npos : close - 1);
      at += close == std::string_view::npos ? rest.size() : close + 1;
    } else if (IsLetter(rest[0])) {
      const FormatItem* row = MatchItem(rest);
      if (row == nullptr || !RenderItem(*row, parts, piece)) return writer.Finish(length, false);
      const size_t letters = std::string_view(row->letters).size();
      at += letters + RenderSuffix(*row, rest.substr(letters), parts, piece);
    } else {
      piece = rest.substr(0, 1);
      ++at;
    }
    if (!writer.Put(piece)) return writer.Finish(length, false);
  }
  return writer.Finish(length, true);
}

std::string FormatDate(int32_t dayNumber, int32_t time, std::string_view format,
                       const FrequencyRecord* frequency, bool upperCase) {
  char buffer[257];
  int32_t length = 0;
  if (!FormatDate(dayNumber, time, format, buffer, sizeof buffer, &length, frequency, upperCase))
    return std::string();
  return std::string(buffer, length);
}

std::string DefaultDateFormat(int32_t width, int32_t time) {
  std::string format = width >= 10 ? "YYYY-MM-DD" : width >= 7 ? "YYYY-MM" : "YY-MM";
  const int32_t left = width - static_cast<int32_t>(format.size());
  if (time < 0 || left < 6) return format;
  const int32_t places = left - 1;
  if (time % 1000 != 0 && places >= 12) return format + " hh:MI:SS.SSS";
  if (time % 60000 != 0 && places >= 8) return format + " hh:MI:SS";
  return format + " hh:MI";
}

}  // namespace quillon
