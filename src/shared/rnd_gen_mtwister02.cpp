// RndGenMTwister02: MT19937 with the seeding of 2002, by a single word or by an array of keys.
#include <algorithm>

#include "shared/mersenne_twister.h"

namespace quillon {

namespace {

constexpr uint32_t kDefaultSeed = 5489;

void SeedWords(MTwisterState& state, uint32_t seed) {
  auto& mt = state.words;
  mt[0] = seed;
  for (uint32_t i = 1; i < kMTwisterWords; ++i)
    mt[i] = 1812433253 * (mt[i - 1] ^ (mt[i - 1] >> 30)) + i;
  state.index = kMTwisterWords;
}

}  // namespace

std::unique_ptr<RndGen> RndGenMTwister02::Clone() const {
  return std::make_unique<RndGenMTwister02>(*this);
}

void RndGenMTwister02::Seed(uint32_t seed) {
  SeedWords(state_, seed);
  gauss_fresh = 1;
}

uint32_t RndGenMTwister02::NextWord() {
  return MTwisterNextWord(state_, SeedWords, kDefaultSeed);
}

double RndGenMTwister02::Next() { return NextWord() * kTwoToMinus32; }

// Mixes the keys in over at least 624 steps, then once more over all words; the first word is
// set to the top bit so that the state is never all zero.
void RndGenMTwister02::SeedByArray(std::span<const uint32_t> keys) {
  SeedWords(state_, 19650218);
  auto& mt = state_.words;
  const uint32_t n = kMTwisterWords;
  const uint32_t keyCount = static_cast<uint32_t>(keys.size());
  uint32_t i = 1, j = 0;
  for (uint32_t k = std::max(n, keyCount); k > 0; --k) {
    mt[i] = (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1664525)) + (keyCount ? keys[j] : 0) + j;
    ++i;
    ++j;
    if (i >= n) {
      mt[0] = mt[n - 1];
      i = 1;
    }
    if (j >= keyCount) j = 0;
  }
  for (uint32_t k = n - 1; k > 0; --k) {
    mt[i] = (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1566083941)) - i;
    ++i;
    if (i >= n) {
      mt[0] = mt[n - 1];
      i = 1;
    }
  }
  mt[0] = 0x80000000;
  gauss_fresh = 1;
}

}  // namespace quillon
