// Hash helpers of the shared layer; see hash.h.
#include "shared/hash.h"

#include "shared/names.h"

namespace quillon {

uint32_t MixHash(uint32_t x) {
  const uint32_t y = x * 0x40F391u;
  return y * 0x81E722u - (y / 1021u) * 0x30B694Du;
}

uint32_t TextHash(const char* bytes, int32_t n, uint32_t seed) {
  uint32_t h = seed ^ 0xFE51983Bu;
  for (int32_t i = 0; i < n; ++i) h = h * 33u + static_cast<unsigned char>(bytes[i]);
  return MixHash(h);
}

uint32_t NameHash(const char* name, uint32_t seed) {
  uint32_t h = seed ^ 0xFE51983Bu;
  for (int32_t i = 0; i < kNameLimit && name[i] != 0; ++i)
    h = h * 33u + static_cast<unsigned char>(LowerByte(name[i]));
  return MixHash(h);
}

}  // namespace quillon
