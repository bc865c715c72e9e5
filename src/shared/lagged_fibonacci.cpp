// The lagged Fibonacci generator on doubles (long lag 100, short lag 37): its array routine, its
// start routines of 2002 and earlier, and the batch refill of the classes built on them.
#include "shared/lagged_fibonacci.h"


namespace quillon {

namespace {

constexpr int32_t KK = kKnuthLongLag;
constexpr int32_t LL = kKnuthShortLag;
// Squarings in the start routine: the guaranteed separation between streams.
constexpr int32_t TT = 70;
constexpr double kUlp = (1.0 / (1L << 30)) / (1L << 22);  // 2 to the -52

// (x + y) mod 1, exact on these doubles.
double ModSum(double x, double y) { return (x + y) - static_cast<int32_t>(x + y); }

// Spreads the seed's bits into the initial buffer: a cyclic shift of 51 bits per cell.
void Bootstrap(double* u, uint32_t seed) {
  double ss = 2.0 * kUlp * ((seed & 0x3FFFFFFF) + 2);
  for (int32_t j = 0; j < KK; ++j) {
    u[j] = ss;
    ss += ss;
    if (ss >= 1.0) ss -= 1.0 - 2 * kUlp;
  }
}

void StoreLag(KnuthLagBuffer& lag, const double* u) {
  for (int32_t j = 0; j < LL; ++j) lag[j + KK - LL] = u[j];
  for (int32_t j = LL; j < KK; ++j) lag[j - LL] = u[j];
}

}  // namespace

void KnuthArray(KnuthLagBuffer& lag, std::span<double> out) {
  const int32_t n = static_cast<int32_t>(out.size());
  if (n < KK) return;
  double* aa = out.data();
  int32_t i, j;
  for (j = 0; j < KK; ++j) aa[j] = lag[j];
  for (; j < n; ++j) aa[j] = ModSum(aa[j - KK], aa[j - LL]);
  for (i = 0; i < LL; ++i, ++j) lag[i] = ModSum(aa[j - KK], aa[j - LL]);
  for (; i < KK; ++i, ++j) lag[i] = ModSum(aa[j - KK], lag[i - LL]);
}

// The polynomial x^(2^(TT-1) + seed) mod the generator's characteristic polynomial, by
// squarings and multiplications by x, then ten runs to warm the buffer up.
void KnuthStart02(KnuthLagBuffer& lag, uint32_t seed) {
  double u[KK + KK - 1];
  Bootstrap(u, seed);
  u[1] += kUlp;
  uint32_t s = seed & 0x3FFFFFFF;
  for (int32_t t = TT - 1; t != 0;) {
    for (int32_t j = KK - 1; j > 0; --j) u[j + j] = u[j], u[j + j - 1] = 0.0;
    for (int32_t j = KK + KK - 2; j >= KK; --j) {
      u[j - (KK - LL)] = ModSum(u[j - (KK - LL)], u[j]);
      u[j - KK] = ModSum(u[j - KK], u[j]);
    }
    if (s & 1) {
      for (int32_t j = KK; j > 0; --j) u[j] = u[j - 1];
      u[0] = u[KK];
      u[LL] = ModSum(u[LL], u[KK]);
    }
    if (s != 0) s >>= 1;
    else --t;
  }
  StoreLag(lag, u);
  for (int32_t j = 0; j < 10; ++j) KnuthArray(lag, std::span<double>(u, KK + KK - 1));
}

// The earlier form keeps a second array of low-order bits (ul) through the squarings, so that
// subtraction stands in for the parity that the later form gets by clearing odd cells.
void KnuthStart(KnuthLagBuffer& lag, uint32_t seed) {
  double u[KK + KK - 1], ul[KK + KK - 1];
  Bootstrap(u, seed);
  for (int32_t j = 0; j < KK; ++j) ul[j] = 0.0;
  for (int32_t j = KK; j < KK + KK - 1; ++j) u[j] = ul[j] = 0.0;
  u[1] += kUlp;
  ul[1] = kUlp;
  uint32_t s = seed & 0x3FFFFFFF;
  for (int32_t t = TT - 1; t != 0;) {
    for (int32_t j = KK - 1; j > 0; --j) ul[j + j] = ul[j], u[j + j] = u[j];
    for (int32_t j = KK + KK - 2; j > KK - LL; j -= 2)
      ul[KK + KK - 1 - j] = 0.0, u[KK + KK - 1 - j] = u[j] - ul[j];
    for (int32_t j = KK + KK - 2; j >= KK; --j) {
      if (ul[j] == 0.0) continue;
      ul[j - (KK - LL)] = kUlp - ul[j - (KK - LL)];
      u[j - (KK - LL)] = ModSum(u[j - (KK - LL)], u[j]);
      ul[j - KK] = kUlp - ul[j - KK];
      u[j - KK] = ModSum(u[j - KK], u[j]);
    }
    if (s & 1) {
      for (int32_t j = KK; j > 0; --j) ul[j] = ul[j - 1], u[j] = u[j - 1];
      ul[0] = ul[KK], u[0] = u[KK];
      if (ul[KK] != 0.0) ul[LL] = kUlp - ul[LL], u[LL] = ModSum(u[LL], u[KK]);
    }
    if (s != 0) s >>= 1;
    else --t;
  }
  StoreLag(lag, u);
}

double KnuthRefill(KnuthStream& stream, const KnuthCells& cells) {
  if (stream.next == cells.notStarted) cells.start(stream.lag, kKnuthDefaultSeed);
  KnuthArray(stream.lag, stream.batch);
  stream.batch[KK] = -1.0;
  stream.next = stream.batch.data() + 1;
  return stream.batch[0];
}

void KnuthSettle(KnuthStream& stream, const KnuthCells& cells) {
  stream.next = cells.started;
  KnuthRefill(stream, cells);
  for (int32_t i = 0; i < kKnuthSeedDiscard; ++i) {
    if (*stream.next >= 0) ++stream.next;
    else KnuthRefill(stream, cells);
  }
}

}  // namespace quillon
