// Reading a free date text: up to three date fields (numbers or a month name) with one kind of
// separator, then up to three time fields joined by ":", with "am" or "pm" and a "T" between.
#include <vector>

#include "quillon/calendar.h"
#include "shared/calendar_names.h"
#include "shared/names.h"

namespace quillon {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsPunctuation(char c) {
  return c > ' ' && c < 0x7F && !IsDigit(c) && !IsLetter(c) && c != ':';
}

struct DateField {
  int32_t value;
  int32_t digits;  // 0 for a month name
};

// Reads fields from a text left to right.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : text_(text) {}

  bool AtEnd() const { return at_ >= text_.size(); }
  char Peek() const { return AtEnd() ? 0 : text_[at_]; }
  void Skip() { ++at_; }
  bool SkipBlanks() {
    const size_t start = at_;
    while (!AtEnd() && text_[at_] == ' ') ++at_;
    return at_ > start;
  }
  bool Number(int32_t maxDigits, DateField& field);
  bool Field(DateField& field);
  // "am" or "pm" standing as a word; 0 when neither, 12 for pm, -1 for am.
  int32_t Meridiem();

 private:
  void OrdinalEnding(int32_t value);

  std::string_view text_;
  size_t at_ = 0;
};

bool FieldReader::Number(int32_t maxDigits, DateField& field) {
  field = {.value = 0, .digits = 0};
  while (!AtEnd() && IsDigit(text_[at_])) {
    if (++field.digits > maxDigits) return false;
    field.value = field.value * 10 + (text_[at_++] - '0');
  }
  return field.digits > 0;
}

// An ending that doesn't fit the number is left for the separator test to refuse.
void FieldReader::OrdinalEnding(int32_t value) {
  if (text_.size() - at_ < 2 || !IsLetter(text_[at_])) return;
  const char ending[3] = {LowerByte(text_[at_]), LowerByte(text_[at_ + 1]), 0};
  const int32_t last = value % 10;
  const char* wanted = value % 100 / 10 == 1 ? "th"
                       : last == 1           ? "st"
                       : last == 2           ? "nd"
                       : last == 3           ? "rd"
                                             : "th";
  if (std::string_view(ending) == wanted) at_ += 2;
}

bool FieldReader::Field(DateField& field) {
  if (IsLetter(Peek())) {
    int32_t length;
    const int32_t month = MatchMonthName(text_.substr(at_), length);
    if (month == 0) return false;
    at_ += length;
    field = {.value = month, .digits = 0};
    return true;
  }
  if (!Number(8, field)) return false;
  if (field.digits <= 2) OrdinalEnding(field.value);
  return true;
}

int32_t FieldReader::Meridiem() {
  if (text_.size() - at_ < 2) return 0;
  const char first = LowerByte(text_[at_]);
  if ((first != 'a' && first != 'p') || LowerByte(text_[at_ + 1]) != 'm') return 0;
  if (text_.size() - at_ > 2 && IsLetter(text_[at_ + 2])) return 0;
  at_ += 2;
  return first == 'p' ? 12 : -1;
}

// Where the time begins: the first run of one or two digits followed by ":" or by "am" or "pm".
size_t TimeStart(std::string_view text) {
  for (size_t at = 0; at < text.size(); ++at) {
    if (!IsDigit(text[at]) || (at > 0 && IsDigit(text[at - 1]))) continue;
    size_t end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    if (end - at > 2) continue;
    size_t next = end;
    while (next < text.size() && text[next] == ' ') ++next;
    if (end < text.size() && text[end] == ':') return at;
    FieldReader rest(text.substr(next));
    if (rest.Meridiem() != 0) return at;
  }
  return text.size();
}

bool ReadTime(std::string_view text, int32_t& time) {
  FieldReader reader(text);
  DateField parts[3] = {{0, 0}, {0, 0}, {0, 0}};
  int32_t count = 0;
  do {
    if (count == 3 || !reader.Number(2, parts[count++])) return false;
  } while (reader.Peek() == ':' && (reader.Skip(), true));
  reader.SkipBlanks();
  const int32_t meridiem = reader.Meridiem();
  reader.SkipBlanks();
  if (!reader.AtEnd()) return false;
  int32_t hour = parts[0].value;
  if (meridiem != 0) {
    if (hour < 1 || hour > 12) return false;
    hour = hour % 12 + (meridiem > 0 ? 12 : 0);
  }
  time = TimeOfDay(hour, parts[1].value, parts[2].value, 0);
  return time != kNoTime;
}

bool ReadFields(std::string_view text, bool blanksSeparate, std::vector<DateField>& fields) {
  FieldReader reader(text);
  char separator = 0;
  for (;;) {
    DateField field;
    if (fields.size() == 3 || !reader.Field(field)) return false;
    fields.push_back(field);
    if (reader.AtEnd()) return true;
    const char found = reader.SkipBlanks() ? ' ' : reader.Peek();
    if (found == ' ' ? !blanksSeparate : !IsPunctuation(found)) return false;
    if (found != ' ') reader.Skip();
    if (separator != 0 && found != separator) return false;
    separator = found;
  }
}

bool IsYear(const DateField& field) { return field.digits >= 3; }

struct OrderedDate {
  DateField year, month, day;
};

// Puts the fields in year, month, day order: a month name or a year of three or more digits
// settles the order, otherwise the options do. Two fields are a month of a year, one field a
// year alone or eight digits of year, month and day.
bool OrderFields(const std::vector<DateField>& f, DateOrder order, OrderedDate& out) {
  const DateField firstDay = {.value = 1, .digits = 1};
  int32_t named = -1, names = 0;
  for (size_t i = 0; i < f.size(); ++i)
    if (f[i].digits == 0) named = static_cast<int32_t>(i), ++names;
  if (names > 1) return false;
  if (f.size() == 1) {
    const int32_t v = f[0].value;
    if (f[0].digits == 4) out = {.year = f[0], .month = firstDay, .day = firstDay};
    else if (f[0].digits == 8)
      out = {.year = {v / 10000, 4}, .month = {v / 100 % 100, 2}, .day = {v % 100, 2}};
    else return false;
    return true;
  }
  if (f.size() == 2) {
    const int32_t year = IsYear(f[0]) ? 0 : IsYear(f[1]) ? 1 : -1;
    if (year < 0 || IsYear(f[1 - year])) return false;
    out = {.year = f[year], .month = f[1 - year], .day = firstDay};
    return true;
  }
  if (named >= 0) {
    const DateField& a = f[named == 0 ? 1 : 0];
    const DateField& b = f[named == 2 ? 1 : 2];
    out = IsYear(a) ? OrderedDate{a, f[named], b} : OrderedDate{b, f[named], a};
  } else if (IsYear(f[0]) || order == DateOrder::YearMonthDay) {
    out = {.year = f[0], .month = f[1], .day = f[2]};
  } else if (order == DateOrder::MonthDayYear) {
    out = {.year = f[2], .month = f[0], .day = f[1]};
  } else {
    out = {.year = f[2], .month = f[1], .day = f[0]};
  }
  return true;
}

bool ReadDate(std::string_view text, const DateTextOptions& options, int32_t& dayNumber) {
  std::vector<DateField> fields;
  OrderedDate date;
  if (!ReadFields(text, options.blanksSeparate, fields) ||
      !OrderFields(fields, options.order, date))
    return false;
  if (date.day.digits == 0 || date.year.digits == 0) return false;
  return DayNumberFromCivil(date.year.value, date.month.value, date.day.value, dayNumber,
                            date.year.digits <= 2);
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

}  // namespace

bool ReadDateText(std::string_view text, int32_t& dayNumber, int32_t& time,
                  const DateTextOptions& options) {
  dayNumber = kNoDate;
  time = kNoTime;
  text = Trimmed(text);
  const size_t timeAt = TimeStart(text);
  std::string_view datePart = Trimmed(text.substr(0, timeAt));
  // A "T" between date and time, but not the last letter of a month name ("Oct").
  const size_t n = datePart.size();
  const bool marked = n >= 2 && (datePart[n - 1] == 'T' || datePart[n - 1] == 't') &&
                      !IsLetter(datePart[n - 2]);
  if (timeAt < text.size() && marked)
    datePart = Trimmed(datePart.substr(0, datePart.size() - 1));
  if (datePart.empty() && timeAt == text.size()) return false;
  if (!datePart.empty() && !ReadDate(datePart, options, dayNumber)) return false;
  return timeAt == text.size() || ReadTime(text.substr(timeAt), time);
}

}  // namespace quillon
