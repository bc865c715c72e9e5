// Exact arithmetic on 32-bit words: integer and rational folding with overflow reported by
// status. Wrap-around is done in unsigned arithmetic so that it is defined behaviour.
#include "core/exact_numbers.h"

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <limits>

namespace quillon {

const uint32_t PowerLimit[32] = {
    0xFFFFFFFF, 0xFFFFFFFF, 65535, 1625, 255, 84, 40, 23, 15, 11, 9, 7, 6, 5, 4, 4,
    3,          3,          3,     3,    3,   2,  2,  2,  2,  2,  2, 2, 2, 2, 2, 2,
};

namespace {

constexpr int32_t kMinWord = std::numeric_limits<int32_t>::min();
constexpr int32_t kMaxWord = std::numeric_limits<int32_t>::max();
constexpr Rational kUndefined{0, 0};

int32_t WrapAdd(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

int32_t WrapMultiply(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

int32_t WrapNegate(int32_t a) { return static_cast<int32_t>(0u - static_cast<uint32_t>(a)); }

// Truncating division and remainder, b != 0. The hardware faults on -2147483648 / -1;
// that quotient wraps instead, with no remainder.
int32_t WrapDivide(int32_t a, int32_t b) { return b == -1 ? WrapNegate(a) : a / b; }

int32_t WrapRemainder(int32_t a, int32_t b) { return b == -1 ? 0 : a % b; }

// The wrapped product a * b is checked by dividing it back by b; b of 0 always passes.
// -2147483648 / -1 cannot divide back, so it fails.
bool CheckedMultiply(int32_t a, int32_t b, int32_t* product) {
  *product = WrapMultiply(a, b);
  if (b == 0) return true;
  if (b == -1 && *product == kMinWord) return false;
  return *product / b == a;
}

// Addition checked by the direction the sum moved, as IntAdd does.
bool CheckedAdd(int32_t a, int32_t b, int32_t* sum) {
  RatStatus status;
  *sum = IntAdd(a, b, &status);
  return status == RatExact;
}

uint32_t Limit(uint32_t k) { return k < 32 ? PowerLimit[k] : 1; }

// base to the k with no checks inside: the caller has held base to Limit(k). Squares past
// the last one needed may wrap, harmlessly, in unsigned arithmetic.
uint32_t RawPower(uint32_t base, uint32_t k) {
  switch (k) {
    case 0: return 1;
    case 1: return base;
    case 2: return base * base;
    case 3: return base * base * base;
    case 4: {
      uint32_t square = base * base;
      return square * square;
    }
    default: break;
  }
  uint32_t result = 1;
  while (k != 0) {
    if (k & 1) result *= base;
    base *= base;
    k >>= 1;
  }
  return result;
}

Rational Reduce(int32_t n, int32_t d) {
  int32_t g = Gcd(n, d);
  return {WrapDivide(n, g), WrapDivide(d, g)};
}

bool IsOdd(int32_t k) { return (k & 1) != 0; }

// Root of one word of a rational; the magnitude of -2147483648 is read as 2^31.
int32_t RootOfWord(int32_t word, int32_t k, RatStatus* status) {
  if (k < 0) {
    *status = RatOverflow;
    return 0;
  }
  if (word < 0 && !IsOdd(k)) {
    *status = RatDomain;
    return 0;
  }
  uint32_t magnitude = word < 0 ? 0u - static_cast<uint32_t>(word) : static_cast<uint32_t>(word);
  int32_t root = static_cast<int32_t>(UIntRoot(magnitude, static_cast<uint32_t>(k), status));
  return word < 0 ? WrapNegate(root) : root;
}

RatStatus WorstStatus(RatStatus s1, RatStatus s2, RatStatus s3) {
  for (RatStatus worst : {RatDomain, RatOverflow, RatInexact}) {
    if (s1 == worst || s2 == worst || s3 == worst) return worst;
  }
  return RatExact;
}

// Roots of 0/0 and of the infinities.
Rational RootOfInfinite(Rational a, int32_t k) {
  if (a.numerator == 0) return kUndefined;
  if (k == 0) return a;
  if (a.numerator < 0 && !IsOdd(k)) return kUndefined;
  if (k > 0) return a;
  return {0, 1};
}

// r to the integer e.numerator, after the root by e.denominator was taken.
Rational PowerOfRoot(Rational r, int32_t exponent, RatStatus* status) {
  *status = RatExact;
  if (r.denominator == 0) {
    if (r.numerator == 0) return kUndefined;
    if (exponent > 0) return {r.numerator < 0 && IsOdd(exponent) ? -1 : 1, 0};
    if (exponent == 0) return {1, 1};
    return {0, 1};
  }
  int32_t magnitude = exponent < 0 ? WrapNegate(exponent) : exponent;
  RatStatus xStatus, yStatus;
  int32_t x = IntPower(r.numerator, magnitude, &xStatus);
  int32_t y = IntPower(r.denominator, magnitude, &yStatus);
  if (xStatus != RatExact || yStatus != RatExact) {
    *status = RatOverflow;
    return kUndefined;
  }
  if (y < 0) {
    x = WrapNegate(x);
    y = WrapNegate(y);
  }
  Rational power = Reduce(x, y);
  if (exponent < 0) {
    RatStatus ignored = RatExact;
    power = RatReciprocal(power, &ignored);
  }
  return power;
}

// A base raised to an infinite or undefined exponent; the base is judged by comparing its
// two words, which places bases above and below 1 correctly.
Rational PowerToInfinite(Rational a, Rational e) {
  if (e.numerator == 0 || a.numerator < 0) return kUndefined;
  if (a.numerator == a.denominator) return {1, 1};
  bool grows = (a.numerator > a.denominator) == (e.numerator > 0);
  return grows ? Rational{1, 0} : Rational{0, 1};
}

}  // namespace

int32_t Gcd(int32_t a, int32_t b) {
  if (a == 0) return b == 0 ? 1 : b;
  if (a < 0) a = WrapNegate(a);
  if (b == 0) return a;
  if (b < 0) b = WrapNegate(b);
  int32_t x = a > b ? a : b;
  int32_t y = a > b ? b : a;
  for (;;) {
    int32_t remainder = WrapRemainder(x, y);
    if (remainder == 0) return y;
    x = y;
    y = remainder;
  }
}

int32_t IntAdd(int32_t a, int32_t b, RatStatus* status) {
  int32_t s = WrapAdd(a, b);
  bool wrapped = b < 0 ? s > a : s < a;
  *status = wrapped ? RatOverflow : RatExact;
  return s;
}

int32_t IntMultiply(int32_t a, int32_t b, RatStatus* status) {
  int32_t product;
  *status = CheckedMultiply(a, b, &product) ? RatExact : RatOverflow;
  return product;
}

int32_t IntDivide(int32_t a, int32_t b, RatStatus* status) {
  if (b == 0) {
    *status = RatDomain;
    return a > 0 ? kMaxWord : a < 0 ? kMinWord : 0;
  }
  *status = WrapRemainder(a, b) != 0 ? RatInexact : RatExact;
  return WrapDivide(a, b);
}

uint32_t UIntPower(uint32_t base, uint32_t k, RatStatus* status) {
  if (k >= 32 ? base >= 2 : base > PowerLimit[k]) {
    *status = RatOverflow;
    return 0xFFFFFFFF;
  }
  *status = RatExact;
  return RawPower(base, k);
}

int32_t IntPower(int32_t base, int32_t k, RatStatus* status) {
  if (k < 0) {
    *status = RatOverflow;
    return 0;
  }
  uint32_t exponent = static_cast<uint32_t>(k);
  if (base < 0) {
    uint32_t r = UIntPower(static_cast<uint32_t>(WrapNegate(base)), exponent, status);
    if (r > 0x80000000u) {
      *status = RatOverflow;
      return IsOdd(k) ? kMinWord : kMaxWord;
    }
    return IsOdd(k) ? static_cast<int32_t>(0u - r) : static_cast<int32_t>(r);
  }
  uint32_t r = UIntPower(static_cast<uint32_t>(base), exponent, status);
  if (static_cast<int32_t>(r) < 0) {
    *status = RatOverflow;
    return kMaxWord;
  }
  return static_cast<int32_t>(r);
}

// Sets the bits of the root from the top, keeping each one whose power stays at or below
// the value; candidates above the limit are skipped so the powers never overflow.
uint32_t UIntRoot(uint32_t value, uint32_t k, RatStatus* status) {
  *status = RatExact;
  if (value == 0) return 0;
  if (k == 0) {
    *status = RatDomain;
    return 0;
  }
  uint32_t highBit = static_cast<uint32_t>(std::bit_width(value)) - 1;
  uint32_t limit = Limit(k);
  uint32_t root = 0;
  for (uint32_t bit = 1u << (highBit / k); bit != 0; bit >>= 1) {
    uint32_t candidate = root | bit;
    if (candidate > limit) continue;
    uint32_t power = RawPower(candidate, k);
    if (power == value) return candidate;
    if (power < value) root = candidate;
  }
  *status = RatInexact;
  return root;
}

Rational RatMake(int32_t n, int32_t d) {
  if (d < 0) {
    n = WrapNegate(n);
    d = WrapNegate(d);
  }
  return Reduce(n, d);
}

// Tries the plain cross products first; on overflow it sets the common factors of the
// numerators and of the denominators aside, which delays the fall to doubles. The product
// of the denominators on the plain path is deliberately unchecked: callers depend on its
// wrapped value.
Rational RatAdd(Rational a, Rational b, RatStatus* status) {
  if (a.denominator == 0 && b.denominator == 0) {
    *status = RatExact;
    if (a.numerator == 0 || b.numerator == 0) return kUndefined;
    int32_t s = WrapAdd(a.numerator, b.numerator);
    return {WrapDivide(s, Gcd(s, 0)), 0};
  }
  int32_t p, q, s;
  bool passed = CheckedMultiply(a.numerator, b.denominator, &p);
  passed &= CheckedMultiply(b.numerator, a.denominator, &q);
  passed &= CheckedAdd(p, q, &s);
  if (passed) {
    *status = RatExact;
    return RatMake(s, WrapMultiply(a.denominator, b.denominator));
  }
  int32_t g1 = Gcd(a.numerator, b.numerator);
  int32_t g2 = Gcd(a.denominator, b.denominator);
  int32_t x = WrapDivide(a.numerator, g1);
  int32_t y = WrapDivide(b.numerator, g1);
  int32_t u = WrapDivide(a.denominator, g2);
  int32_t v = WrapDivide(b.denominator, g2);
  int32_t vx, yu, sum, vu;
  passed = CheckedMultiply(v, x, &vx);
  passed &= CheckedMultiply(y, u, &yu);
  passed &= CheckedAdd(vx, yu, &sum);
  passed &= CheckedMultiply(v, u, &vu);
  if (!passed) {
    *status = RatOverflow;
    return kUndefined;
  }
  return RatMultiply(RatMake(sum, vu), RatMake(g1, g2), status);
}

// On overflow the factors shared across the two fractions are cancelled before a retry.
Rational RatMultiply(Rational a, Rational b, RatStatus* status) {
  int32_t n, d;
  bool passed = CheckedMultiply(a.numerator, b.numerator, &n);
  passed &= CheckedMultiply(a.denominator, b.denominator, &d);
  if (!passed) {
    int32_t g1 = Gcd(a.numerator, b.denominator);
    int32_t g2 = Gcd(a.denominator, b.numerator);
    passed = CheckedMultiply(WrapDivide(b.numerator, g2), WrapDivide(a.numerator, g1), &n);
    passed &= CheckedMultiply(WrapDivide(a.denominator, g2), WrapDivide(b.denominator, g1), &d);
    if (!passed) {
      *status = RatOverflow;
      return kUndefined;
    }
  }
  if (d < 0) {
    n = WrapNegate(n);
    d = WrapNegate(d);
  }
  *status = RatExact;
  return Reduce(n, d);
}

Rational RatReciprocal(Rational a, RatStatus* status) {
  if (a.numerator < 0) {
    int32_t n = WrapNegate(a.numerator);
    int32_t d = WrapNegate(a.denominator);
    if (n == a.numerator || d == a.denominator) *status = RatOverflow;
    return RatMake(d, n);
  }
  *status = RatExact;
  return RatMake(a.denominator, a.numerator);
}

Rational RatDivide(Rational a, Rational b, RatStatus* status) {
  RatStatus ignored = RatExact;
  return RatMultiply(a, RatReciprocal(b, &ignored), status);
}

Rational RatGcd(Rational a, Rational b) {
  return {Gcd(a.numerator, b.numerator), Gcd(a.denominator, b.denominator)};
}

Rational RatRoot(Rational a, int32_t k, RatStatus* status) {
  if (a.denominator == 0) {
    *status = RatExact;
    return RootOfInfinite(a, k);
  }
  RatStatus s1, s2, s3 = RatExact;
  int32_t n = RootOfWord(a.numerator, k, &s1);
  int32_t d = RootOfWord(a.denominator, k, &s2);
  Rational root = RatMake(n, d);
  if (k < 0) root = RatReciprocal(root, &s3);
  *status = WorstStatus(s1, s2, s3);
  if (*status == RatDomain || *status == RatOverflow) return kUndefined;
  return root;
}

Rational RatPower(Rational a, Rational e, RatStatus* status) {
  if (e.denominator == 0) {
    *status = RatExact;
    return PowerToInfinite(a, e);
  }
  RatStatus rootStatus, powerStatus;
  Rational root = RatRoot(a, e.denominator, &rootStatus);
  Rational power = PowerOfRoot(root, e.numerator, &powerStatus);
  *status = rootStatus != RatExact ? rootStatus : powerStatus;
  return power;
}

}  // namespace quillon
