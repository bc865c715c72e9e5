// RndGenKnuth: the lagged Fibonacci generator started by the earlier routine, which can also be
// seeded from another generator's draws.
#include "shared/lagged_fibonacci.h"

namespace quillon {

namespace {

const double kNotStarted = -1.0;
const double kStarted = -1.0;
const KnuthCells kCells = {.notStarted = &kNotStarted, .started = &kStarted, .start = KnuthStart};

}  // namespace

RndGenKnuth::RndGenKnuth() { stream_.next = &kNotStarted; }

// The copy keeps the read pointer as it stands, in the source's batch: required behaviour.
std::unique_ptr<RndGen> RndGenKnuth::Clone() const { return std::make_unique<RndGenKnuth>(*this); }

void RndGenKnuth::Seed(uint32_t seed) {
  KnuthStart(stream_.lag, seed);
  KnuthSettle(stream_, kCells);
  gauss_fresh = 1;
}

void RndGenKnuth::SeedFrom(RndGen& other) {
  for (int32_t i = kKnuthLongLag - 1; i >= 0; --i) stream_.lag[i] = other.Next();
  KnuthSettle(stream_, kCells);
  gauss_fresh = 1;
}

double RndGenKnuth::NextBatch() { return KnuthRefill(stream_, kCells); }

}  // namespace quillon
