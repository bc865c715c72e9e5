// The log of the shared layer: a time-stamped line on the console (standard error here) and
// the message alone appended to "log.out" in the current directory. The engine never calls it.
#pragma once

namespace quillon {

void LogText(const char* text);
void LogFormat(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace quillon
