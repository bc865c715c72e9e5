// RndGenMTwister: MT19937 with the seeding of 1998, by a linear congruential generator.
#include <algorithm>

#include "shared/mersenne_twister.h"

namespace quillon {

namespace {

constexpr uint32_t kDefaultSeed = 4357;

// Each word takes the high halves of two successive values of x = 69069 x + 1.
void SeedWords(MTwisterState& state, uint32_t seed) {
  uint32_t x = seed;
  for (uint32_t& word : state.words) {
    const uint32_t y = x * 69069 + 1;
    word = (x & 0xFFFF0000) | ((y & 0xFFFF0000) >> 16);
    x = y * 69069 + 1;
  }
  state.index = kMTwisterWords;
}

}  // namespace

std::unique_ptr<RndGen> RndGenMTwister::Clone() const {
  return std::make_unique<RndGenMTwister>(*this);
}

void RndGenMTwister::Seed(uint32_t seed) {
  SeedWords(state_, seed);
  gauss_fresh = 1;
}

uint32_t RndGenMTwister::NextWord() { return MTwisterNextWord(state_, SeedWords, kDefaultSeed); }

double RndGenMTwister::Next() { return NextWord() * kTwoToMinus32; }

void RndGenMTwister::LoadState(std::span<const uint32_t, kMTwisterWords> words) {
  std::copy(words.begin(), words.end(), state_.words.begin());
  state_.index = kMTwisterWords;
  gauss_fresh = 1;
}

}  // namespace quillon
