// Hash helpers: the integer mix, the text hash and the case-blind name hash.
// Their values take part in stored tables, so they are bit-exact and never change.
#pragma once

#include <cstdint>

namespace quillon {

uint32_t MixHash(uint32_t x);

// Hash of n bytes, each one as it stands.
uint32_t TextHash(const char* bytes, int32_t n, uint32_t seed);

// Hash of a zero-terminated name of at most 301 bytes, each byte lower-cased.
uint32_t NameHash(const char* name, uint32_t seed);

inline uint32_t RotateLeft(uint32_t x, unsigned k) {
  k &= 31;
  return k == 0 ? x : (x << k) | (x >> (32 - k));
}

}  // namespace quillon
