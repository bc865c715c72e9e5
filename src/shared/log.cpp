// The shared layer's log; see log.h.
#include "shared/log.h"

#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <ctime>

#include "shared/platform.h"

namespace quillon {
namespace {

char logBuffer[512];

void WriteStamp() {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const auto millis = static_cast<unsigned short>(
      std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000);
  char local[32];
  if (!LocalTimeText(seconds, local)) {
    WriteToConsole("Invalid argument to ctime_s. ");
    return;
  }
  char stamp[64];
  std::snprintf(stamp, sizeof stamp, "%.19s.%hu %.4s ", local, millis, local + 20);
  WriteToConsole(stamp);
}

}  // namespace

void LogText(const char* text) {
  WriteStamp();
  WriteToConsole(text);
  if (std::FILE* file = std::fopen("log.out", "a")) {
    std::fputs(text, file);
    std::fflush(file);
    std::fclose(file);
  }
}

void LogFormat(const char* format, ...) {
  va_list args;
  va_start(args, format);
  std::vsnprintf(logBuffer, sizeof logBuffer, format, args);
  va_end(args);
  LogText(logBuffer);
}

}  // namespace quillon
