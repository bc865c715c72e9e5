// RndGen: what all generators share, the Gaussian draw and the do-nothing seeding from another.
#include <cmath>

#include "quillon/random.h"

namespace quillon {

void RndGen::SeedFrom(RndGen&) {}

// The polar method. s = 0 is not excluded: it yields a not-a-number pair, as it always has.
double RndGen::Gauss() {
  if (gauss_fresh == 0) {
    gauss_fresh = 1;
    return gauss_stored;
  }
  gauss_fresh = 0;
  double a, b, s;
  do {
    a = 2.0 * Next() - 1.0;
    b = 2.0 * Next() - 1.0;
    s = a * a + b * b;
  } while (s >= 1.0);
  const double f = std::sqrt(-2.0 * std::log(s) / s);
  gauss_stored = f * b;
  return f * a;
}

}  // namespace quillon
