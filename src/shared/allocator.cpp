// The counting allocator and its parser twin; see allocator.h.
#include "shared/allocator.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace quillon {
namespace {

void WriteToStandardError(const char* text) { std::fputs(text, stderr); }

// Every thread allocates, so the counters are atomic; relaxed, since only their sums matter.
// Unsigned, so that they wrap rather than trap when a huge request is counted.
struct Counters {
  std::atomic<uint32_t> blocks{0};
  std::atomic<uint32_t> bytes{0};
};

Counters general;
Counters parser;
ReportHook hooks[3] = {WriteToStandardError, WriteToStandardError, WriteToStandardError};
char failureText[512];

void ReportFailure(size_t size) {
  std::snprintf(failureText, sizeof failureText, "malloc failed (cannot allocate %li bytes)",
                static_cast<long>(size));
  hooks[0](failureText);
}

// Counters are 32-bit by design.
void Count(Counters& c, int32_t blocks, size_t bytes, bool up) {
  const uint32_t b = static_cast<uint32_t>(bytes);
  c.blocks.fetch_add(static_cast<uint32_t>(blocks), std::memory_order_relaxed);
  c.bytes.fetch_add(up ? b : 0u - b, std::memory_order_relaxed);
}

AllocationCounters Snapshot(const Counters& c) {
  return {static_cast<int32_t>(c.blocks.load(std::memory_order_relaxed)),
          static_cast<int32_t>(c.bytes.load(std::memory_order_relaxed))};
}

}  // namespace

void* Allocate(size_t size) {
  void* block = size <= kAllocationLimit ? std::malloc(size == 0 ? 1 : size) : nullptr;
  if (block == nullptr) ReportFailure(size);
  Count(general, 1, size, true);
  return block;
}

void* Reallocate(void* block, size_t oldSize, size_t newSize) {
  void* moved = newSize <= kAllocationLimit ? std::realloc(block, newSize == 0 ? 1 : newSize) : nullptr;
  if (moved == nullptr) {
    ReportFailure(newSize);
    return nullptr;
  }
  if (newSize >= oldSize)
    Count(general, 0, newSize - oldSize, true);
  else
    Count(general, 0, oldSize - newSize, false);
  return moved;
}

void Free(void* block, size_t size) {
  std::free(block);
  Count(general, -1, size, false);
}

void* ParserAllocate(size_t size) {
  void* block = size <= kAllocationLimit ? std::malloc(size == 0 ? 1 : size) : nullptr;
  if (block == nullptr) std::fputs("fatal error: parser out of memory", stderr);
  Count(parser, 1, size, true);
  return block;
}

void ParserFree(void* block, size_t size) {
  std::free(block);
  Count(parser, -1, size, false);
}

AllocationCounters GeneralCounters() { return Snapshot(general); }
AllocationCounters ParserCounters() { return Snapshot(parser); }

void SetReportHooks(ReportHook first, ReportHook second, ReportHook third) {
  if (first != nullptr) hooks[0] = first;
  if (second != nullptr) hooks[1] = second;
  if (third != nullptr) hooks[2] = third;
}

}  // namespace quillon
