// The console of Windows: a host without one (a windowed program) gets one on the first line of
// the log, and the text goes to its output handle.
#include <windows.h>

#include <cstring>

#include "shared/platform.h"

namespace quillon {

void WriteToConsole(const char* text) {
  AllocConsole();  // fails harmlessly when the process already has a console
  HANDLE output = GetStdHandle(STD_ERROR_HANDLE);
  if (output == nullptr || output == INVALID_HANDLE_VALUE) return;
  DWORD written = 0;
  if (!WriteConsoleA(output, text, static_cast<DWORD>(std::strlen(text)), &written, nullptr))
    WriteFile(output, text, static_cast<DWORD>(std::strlen(text)), &written, nullptr);  // redirected
}

}  // namespace quillon
