// SymbolFilter: a fixed bit set over symbol hashes that tells a gradient which variables
// certainly do not stand in an expression, without walking it once per variable.
#pragma once

#include <array>
#include <cstdint>

#include "core/enode.h"

namespace quillon {

// One bit per symbol hash modulo 8192. A clear bit proves that no symbol with that hash stands
// in the tree; a set bit proves nothing, so a collision only costs the slower way.
struct SymbolFilter {
  static constexpr uint32_t bitCount = 8192;

  // Clears all bits, then sets the bit of every symbol in tree (borrowed). Wildcards, literals
  // and function nodes themselves add nothing.
  void Add(const ENode* tree);
  // Whether the bit of symbol (borrowed) is set.
  bool MayHold(const ENode* symbol) const;

  std::array<uint32_t, bitCount / 32> words{};
};

}  // namespace quillon
