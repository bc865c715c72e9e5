// RndGenLecuyer: the combined multiple recursive generator MRG32k5a, in floating point as
// published, seeded by a linear congruential generator.
#include "quillon/random.h"

namespace quillon {

namespace {

constexpr double kNorm = 2.3283163396834614e-10;
constexpr double kM1 = 4294949027.0;
constexpr double kM2 = 4294934327.0;
constexpr double kA12 = 1154721.0;
constexpr double kA14 = 1739991.0;
constexpr double kA15n = 1108499.0;
constexpr double kA21 = 1776413.0;
constexpr double kA23 = 865203.0;
constexpr double kA25n = 1641052.0;
constexpr uint32_t kConstructionSeed = 0x98761234;

// p mod m for the sums below, which stay exact in a double: the subtraction made on a positive
// partial sum keeps the full sum inside 53 bits.
double Reduce(double p, double m) {
  const int64_t k = static_cast<int64_t>(p / m);
  p -= static_cast<double>(k) * m;
  return p < 0.0 ? p + m : p;
}

}  // namespace

RndGenLecuyer::RndGenLecuyer() { Seed(kConstructionSeed); }

std::unique_ptr<RndGen> RndGenLecuyer::Clone() const {
  return std::make_unique<RndGenLecuyer>(*this);
}

void RndGenLecuyer::Seed(uint32_t seed) {
  uint32_t x = seed;
  for (int32_t i = 0; i < 10; ++i) {
    x = x * 1664525 + 1013904223;
    state_[i] = static_cast<double>(x % static_cast<uint32_t>(i < 5 ? kM1 : kM2));
  }
  gauss_fresh = 1;
}

// x1 = (a12 x1[n-2] + a14 x1[n-4] - a15 x1[n-5]) mod m1,
// x2 = (a21 x2[n-1] + a23 x2[n-3] - a25 x2[n-5]) mod m2, and their difference mod m1.
double RndGenLecuyer::Next() {
  double* s1 = state_.data();
  double* s2 = state_.data() + 5;
  double p1 = kA12 * s1[3] - kA15n * s1[0];
  if (p1 > 0.0) p1 -= kA14 * kM1;
  p1 = Reduce(p1 + kA14 * s1[1], kM1);
  for (int32_t i = 0; i < 4; ++i) s1[i] = s1[i + 1];
  s1[4] = p1;

  double p2 = kA21 * s2[4] - kA25n * s2[0];
  if (p2 > 0.0) p2 -= kA23 * kM2;
  p2 = Reduce(p2 + kA23 * s2[2], kM2);
  for (int32_t i = 0; i < 4; ++i) s2[i] = s2[i + 1];
  s2[4] = p2;

  return p1 <= p2 ? (p1 - p2 + kM1) * kNorm : (p1 - p2) * kNorm;
}

}  // namespace quillon
