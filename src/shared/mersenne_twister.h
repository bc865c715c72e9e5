// The refill and tempering of MT19937, shared by the two Twister classes, which differ in seeding.
#pragma once

#include "quillon/random.h"

namespace quillon {

// Scales a 32-bit word to [0, 1).
inline constexpr double kTwoToMinus32 = 2.3283064365386963e-10;

// The next tempered word; seeds with defaultSeed through seed first when never seeded.
uint32_t MTwisterNextWord(MTwisterState& state, void (*seed)(MTwisterState&, uint32_t),
                          uint32_t defaultSeed);

}  // namespace quillon
