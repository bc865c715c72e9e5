// The clock of POSIX systems: the monotonic clock in nanoseconds.
#include <time.h>

#include "shared/platform.h"

namespace quillon {

uint64_t PerformanceTicks() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<uint64_t>(now.tv_sec) * 1000000000u + static_cast<uint64_t>(now.tv_nsec);
}

bool LocalTimeText(std::time_t seconds, char (&text)[32]) {
  std::tm parts{};
  return localtime_r(&seconds, &parts) != nullptr && asctime_r(&parts, text) != nullptr;
}

}  // namespace quillon
