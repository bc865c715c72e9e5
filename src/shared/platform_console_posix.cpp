// The console of POSIX systems is the standard error stream.
#include <cstdio>

#include "shared/platform.h"

namespace quillon {

void WriteToConsole(const char* text) { std::fputs(text, stderr); }

}  // namespace quillon
