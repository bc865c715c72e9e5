// Exact numbers: the Rational pair, the status codes and the 32-bit integer and rational
// arithmetic that folds literals. No node types here; the number nodes wrap these values.
#pragma once

#include <cstdint>

namespace quillon {

// numerator/denominator in canonical form has denominator >= 0 and no common factor.
// A denominator of 0 is a value, not an error: 1/0 and -1/0 are the infinities, 0/0 is
// undefined.
struct Rational {
  int32_t numerator;
  int32_t denominator;

  bool operator==(const Rational&) const = default;
};

// How a result stands. Callers treat everything but RatExact alike: they redo the
// operation in doubles. Overflow is never an error.
enum RatStatus : uint32_t {
  RatExact = 0,     // the value is exact
  RatInexact = 1,   // a truncated integer root or quotient
  RatOverflow = 2,  // a word overflowed; value 0/0 unless the function states another
  RatDomain = 3,    // no value: an even root of a negative, a division by zero
};

// Entry k is the largest base whose k-th power fits in a u32; bases above it overflow.
// Exponents of 32 or more have the limit 1.
extern const uint32_t PowerLimit[32];

// All sums, differences and products below wrap around in two's complement, and so does
// the negation of -2147483648. None of the functions throws, allocates or faults.

// Greatest common divisor, never 0: Gcd(0, 0) is 1 so that 0/0 survives reductions.
// Gcd(0, b) is b as it stands, sign included; Gcd(a, 0) is |a|.
int32_t Gcd(int32_t a, int32_t b);

// The wrapped sum; RatOverflow when it wrapped.
int32_t IntAdd(int32_t a, int32_t b, RatStatus* status);

// The wrapped product; RatOverflow when it wrapped.
int32_t IntMultiply(int32_t a, int32_t b, RatStatus* status);

// The quotient truncated toward zero: RatInexact when a remainder is left. A divisor of 0
// gives RatDomain with 2147483647, -2147483648 or 0 by the sign of a.
// -2147483648 / -1 wraps to -2147483648.
int32_t IntDivide(int32_t a, int32_t b, RatStatus* status);

// base to the exponent k; 0xFFFFFFFF with RatOverflow when it does not fit. k of 0 gives 1.
uint32_t UIntPower(uint32_t base, uint32_t k, RatStatus* status);

// base to the exponent k. A negative k is RatOverflow with 0; a power that does not fit is
// RatOverflow with 2147483647, or -2147483648 for a negative base and odd k.
int32_t IntPower(int32_t base, int32_t k, RatStatus* status);

// Floor of the k-th root of value: RatExact when it is exact, else RatInexact.
// k of 0 has no root: RatDomain with 0, except that a value of 0 gives 0.
uint32_t UIntRoot(uint32_t value, uint32_t k, RatStatus* status);

// n/d in canonical form; a denominator of 0 keeps only the sign of n.
Rational RatMake(int32_t n, int32_t d);

Rational RatAdd(Rational a, Rational b, RatStatus* status);
Rational RatMultiply(Rational a, Rational b, RatStatus* status);

// 1/a, canonical. For a negative numerator the status is written only when a negation
// wrapped (RatOverflow) and is otherwise left as the caller had it.
Rational RatReciprocal(Rational a, RatStatus* status);

// a times the reciprocal of b; the status is the multiplication's alone.
Rational RatDivide(Rational a, Rational b, RatStatus* status);

// The Gcds of the numerators and of the denominators, unreduced: for two rationals in
// lowest terms, the largest rational that divides both.
Rational RatGcd(Rational a, Rational b);

// The k-th root of a; an inexact root is truncated and reported as RatInexact. A negative
// k overflows for every finite a.
Rational RatRoot(Rational a, int32_t k, RatStatus* status);

// a to the rational exponent e; exact only if the root by e's denominator is exact.
// 0 to the 0 is 1/1, and 0 to a negative exponent is 1/0.
Rational RatPower(Rational a, Rational e, RatStatus* status);

}  // namespace quillon
