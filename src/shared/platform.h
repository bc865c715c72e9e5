// What the shared layer asks of the operating system: a fine clock for seeding and the console
// side of the log. Each concern has one file per platform (platform_*_posix.cpp and
// platform_*_windows.cpp); the build picks one of each, so no other file tests the platform.
#pragma once

#include <cstdint>
#include <ctime>

namespace quillon {

// A counter of high resolution, for the clock seed of the generators.
uint64_t PerformanceTicks();

// The local time of `seconds` in the 26-byte form "Www Mmm dd hh:mm:ss yyyy\n"; false when the
// time cannot be converted.
bool LocalTimeText(std::time_t seconds, char (&text)[32]);

// Writes text to the process's console (made when the process has none, on Windows).
void WriteToConsole(const char* text);

}  // namespace quillon
