// SymbolFilter; see symbol_filter.h.
#include "calculus/symbol_filter.h"

#include "core/tree_walk.h"

namespace quillon {

void SymbolFilter::Add(const ENode* tree) {
  words.fill(0);
  for (const ENode* n = tree; n != nullptr; n = NextInPreorder(n, tree)) {
    if (n->GetType() != SymbolType) continue;
    const uint32_t bit = n->Hash() % bitCount;
    words[bit / 32] |= 1u << (bit % 32);
  }
}

bool SymbolFilter::MayHold(const ENode* symbol) const {
  const uint32_t bit = symbol->Hash() % bitCount;
  return (words[bit / 32] & (1u << (bit % 32))) != 0;
}

}  // namespace quillon
