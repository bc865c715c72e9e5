// db_exception: the one exception of the shared layer, thrown by value. It carries a code (the
// row of the message table) and the parameters of that row's message in one text.
#pragma once

#include <cstdint>
#include <string>

namespace quillon {

class db_exception {
 public:
  explicit db_exception(int32_t code, std::string params = {}, char separator = ';')
      : code(code), params(std::move(params)), separator(separator) {}
  virtual ~db_exception() = default;
  db_exception(const db_exception&) = default;
  db_exception& operator=(const db_exception&) = default;

  // The code's message with the parameters filled in (see FormatMessage in quillon/errors.h).
  std::string Message() const;

  int32_t code;
  std::string params;  // parameters of the message, joined by separator
  char separator;
};

// The code raised when a working array cannot be allocated.
inline constexpr int32_t kCodeArrayAllocation = 1929;
// The codes raised by a user break and by a field tokenizer asked past its end.
inline constexpr int32_t kCodeUserBreak = 902;
inline constexpr int32_t kCodeTextIncomplete = 904;

}  // namespace quillon
