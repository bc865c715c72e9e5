// The host query: the callback through which the layer asks the host for settings by keyword,
// and the table of keywords with the buffer size each one is asked with.
#include <cstring>
#include <vector>

#include "quillon/errors.h"

namespace quillon {

namespace {

int32_t NoAnswer(char*, int32_t, const char*) { return 0; }

HostQueryFn hostQuery = NoAnswer;

struct HostKeyRow {
  const char* keyword;
  int32_t bufferSize;  // 0: the caller's size
};

// ORDER HostKey
const HostKeyRow kHostKeys[] = {
    {.keyword = "APPINFO", .bufferSize = 160},
    {.keyword = "DATESTYLE", .bufferSize = 4},
    {.keyword = "GETMAXALPHALEN", .bufferSize = 4},
    {.keyword = "GETTEMPDIR", .bufferSize = 0},
    {.keyword = "FREQCONVMETHOD", .bufferSize = 120},
    {.keyword = "PAGEFREQ", .bufferSize = 120},
};

const HostKeyRow& RowOf(HostKey key) { return kHostKeys[static_cast<int>(key)]; }

}  // namespace

void SetHostQuery(HostQueryFn query) { hostQuery = query != nullptr ? query : NoAnswer; }

// The host may fill the whole buffer without a terminator; the answer stops at the buffer's end.
std::string QueryHostText(HostKey key, int32_t callerSize) {
  const HostKeyRow& row = RowOf(key);
  const int32_t size = row.bufferSize != 0 ? row.bufferSize : callerSize;
  if (size < 1) return std::string();
  std::vector<char> buffer(size, 0);
  if (hostQuery(buffer.data(), size, row.keyword) == 0) return std::string();
  return std::string(buffer.data(), strnlen(buffer.data(), buffer.size()));
}

int32_t QueryHostInteger(HostKey key) {
  char buffer[4] = {};
  if (hostQuery(buffer, sizeof buffer, RowOf(key).keyword) == 0) return 0;
  int32_t value;
  std::memcpy(&value, buffer, sizeof value);
  return value;
}

}  // namespace quillon
