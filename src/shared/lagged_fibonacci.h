// The batch refill shared by the two lagged Fibonacci classes, which differ in start routine and
// in the sentinel cells they own.
#pragma once

#include "quillon/random.h"

namespace quillon {

struct KnuthCells {
  const double* notStarted;  // where a new object's pointer aims
  const double* started;     // where the pointer aims after the start routine
  void (*start)(KnuthLagBuffer& lag, uint32_t seed);
};

// Values that seeding draws and throws away after the first batch.
inline constexpr int32_t kKnuthSeedDiscard = 252;

// The end of every seeding, once the lag buffer holds the new state: marks the stream started,
// fills a batch and draws kKnuthSeedDiscard values.
void KnuthSettle(KnuthStream& stream, const KnuthCells& cells);

// Met at an end mark: starts the stream with the default seed if it never was, fills a new batch
// (end mark in cell kKnuthLongLag), points at cell 1 and returns cell 0.
double KnuthRefill(KnuthStream& stream, const KnuthCells& cells);

}  // namespace quillon
