// The counting allocator: counters move with every block, and oversized requests are
// reported and fail without touching the heap.
#include "shared/allocator.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

std::string lastReport;
void Remember(const char* text) { lastReport = text; }

TEST(Allocator, CountersFollowBlocksAndBytes) {
  const AllocationCounters start = GeneralCounters();
  void* block = Allocate(100);
  EXPECT_EQ(GeneralCounters().blocks, start.blocks + 1);
  EXPECT_EQ(GeneralCounters().bytes, start.bytes + 100);
  block = Reallocate(block, 100, 250);
  EXPECT_EQ(GeneralCounters().blocks, start.blocks + 1);
  EXPECT_EQ(GeneralCounters().bytes, start.bytes + 250);
  Free(block, 250);
  EXPECT_EQ(GeneralCounters().blocks, start.blocks);
  EXPECT_EQ(GeneralCounters().bytes, start.bytes);
}

TEST(Allocator, OversizedRequestIsReportedAndStillCounted) {
  SetReportHooks(Remember, nullptr, nullptr);
  const AllocationCounters start = GeneralCounters();
  EXPECT_EQ(Allocate(0x40000001), nullptr);
  EXPECT_EQ(lastReport, "malloc failed (cannot allocate 1073741825 bytes)");
  EXPECT_EQ(GeneralCounters().bytes, static_cast<int32_t>(static_cast<uint32_t>(start.bytes) + 0x40000001u));
  Free(nullptr, 0x40000001);  // gives the counted bytes back
}

TEST(Allocator, ParserTwinKeepsItsOwnCounters) {
  const AllocationCounters general = GeneralCounters();
  const AllocationCounters parser = ParserCounters();
  void* block = ParserAllocate(64);
  EXPECT_EQ(ParserCounters().bytes, parser.bytes + 64);
  ParserFree(block, 64);
  EXPECT_EQ(ParserCounters().bytes, parser.bytes);
  EXPECT_EQ(GeneralCounters().bytes, general.bytes);
}

}  // namespace
}  // namespace quillon
