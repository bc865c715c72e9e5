// The counting allocator: every block of the shared layer comes from here, and every release
// passes back the block's exact size, so that the counters always tell what is live.
// The parser allocator is a twin with its own counters and its own failure message.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quillon {

// Largest block either allocator hands out; a larger request is reported and fails.
inline constexpr size_t kAllocationLimit = 0x40000000;

// Returns null after reporting through the first report hook when size is over the limit or
// the platform allocator fails; the counters are raised all the same.
void* Allocate(size_t size);
void* Reallocate(void* block, size_t oldSize, size_t newSize);
void Free(void* block, size_t size);

void* ParserAllocate(size_t size);
void ParserFree(void* block, size_t size);

struct AllocationCounters {
  int32_t blocks;
  int32_t bytes;
};
AllocationCounters GeneralCounters();
AllocationCounters ParserCounters();

// A report hook gets the formatted failure text.
using ReportHook = void (*)(const char* text);
// Sets the three report hooks at once; a null argument leaves that hook as it is.
void SetReportHooks(ReportHook first, ReportHook second, ReportHook third);

}  // namespace quillon
