// MT19937's refill of all 624 words and its tempering of one word.
#include "shared/mersenne_twister.h"

namespace quillon {

namespace {

constexpr int32_t N = kMTwisterWords;
constexpr int32_t M = 397;
constexpr uint32_t kMatrixA = 0x9908B0DF;
constexpr uint32_t kUpperMask = 0x80000000;
constexpr uint32_t kLowerMask = 0x7FFFFFFF;

uint32_t Twist(uint32_t upper, uint32_t lower, uint32_t far) {
  const uint32_t y = (upper & kUpperMask) | (lower & kLowerMask);
  return far ^ (y >> 1) ^ ((y & 1) ? kMatrixA : 0);
}

void Refill(std::array<uint32_t, kMTwisterWords>& mt) {
  int32_t k = 0;
  for (; k < N - M; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + M]);
  for (; k < N - 1; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + (M - N)]);
  mt[N - 1] = Twist(mt[N - 1], mt[0], mt[M - 1]);
}

uint32_t Temper(uint32_t y) {
  y ^= y >> 11;
  y ^= (y << 7) & 0x9D2C5680;
  y ^= (y << 15) & 0xEFC60000;
  y ^= y >> 18;
  return y;
}

}  // namespace

uint32_t MTwisterNextWord(MTwisterState& state, void (*seed)(MTwisterState&, uint32_t),
                          uint32_t defaultSeed) {
  if (state.index >= N) {
    if (state.index == N + 1) seed(state, defaultSeed);
    Refill(state.words);
    state.index = 0;
  }
  return Temper(state.words[state.index++]);
}

}  // namespace quillon
