// RndGenKnuth02: the lagged Fibonacci generator started by the routine of 2002.
#include "shared/lagged_fibonacci.h"

namespace quillon {

namespace {

const double kNotStarted = -1.0;
const double kStarted = -1.0;
const KnuthCells kCells = {.notStarted = &kNotStarted, .started = &kStarted, .start = KnuthStart02};

}  // namespace

RndGenKnuth02::RndGenKnuth02() { stream_.next = &kNotStarted; }

// The copy keeps the read pointer as it stands, in the source's batch: required behaviour.
std::unique_ptr<RndGen> RndGenKnuth02::Clone() const {
  return std::make_unique<RndGenKnuth02>(*this);
}

void RndGenKnuth02::Seed(uint32_t seed) {
  KnuthStart02(stream_.lag, seed);
  KnuthSettle(stream_, kCells);
  gauss_fresh = 1;
}

double RndGenKnuth02::NextBatch() { return KnuthRefill(stream_, kCells); }

}  // namespace quillon
