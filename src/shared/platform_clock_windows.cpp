// The clock of Windows: the performance counter, and the thread-safe local time of its runtime.
#include <windows.h>

#include "shared/platform.h"

namespace quillon {

uint64_t PerformanceTicks() {
  LARGE_INTEGER ticks;
  QueryPerformanceCounter(&ticks);
  return static_cast<uint64_t>(ticks.QuadPart);
}

bool LocalTimeText(std::time_t seconds, char (&text)[32]) {
  std::tm parts{};
  return localtime_s(&parts, &seconds) == 0 && asctime_s(text, sizeof text, &parts) == 0;
}

}  // namespace quillon
