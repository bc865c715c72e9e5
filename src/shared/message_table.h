// The message table's row type and the table itself; lookups live in messages.cpp.
#pragma once

#include <cstdint>

namespace quillon {

struct MessageRow {
  int32_t code;
  const char* text;  // template: each "%" takes the next parameter
};

// Rows in their historical order, not sorted by code: lookups scan from the first row.
extern const MessageRow kMessageTable[];
extern const int32_t kMessageTableSize;

}  // namespace quillon
