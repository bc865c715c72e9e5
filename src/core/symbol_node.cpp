// SymbolRef hashing and order, SymbolENode, and the marking of symbol users.
#include "core/symbol_node.h"

#include <vector>

#include "core/function_node.h"
#include "shared/conversions.h"
#include "shared/hash.h"

namespace quillon {

void SymbolRef::ComputeHash() {
  hash = MixHash(static_cast<uint32_t>(index1)) ^ RotateLeft(MixHash(static_cast<uint32_t>(index2)), 16) ^ def->hash;
}

int SymbolCompare(const SymbolRef& a, const SymbolRef& b) {
  if (a.def != b.def) return NameCompare(a.def->name, b.def->name);
  if ((a.def->bits & SymbolSeries) != 0) {
    if (a.index1 == b.index1) return 0;
    return a.index1 < b.index1 ? 1 : -1;
  }
  if (a.index2 != b.index2) return a.index2 < b.index2 ? -1 : 1;
  if (a.index1 != b.index1) return a.index1 < b.index1 ? -1 : 1;
  return 0;
}

namespace {

// Rank of a class in symbol lists; classes outside the list rank first.
int ListRank(uint32_t kind) {
  static constexpr uint32_t kOrder[] = {4, 32, 2, 8, 16, 1};
  for (int i = 0; i < 6; ++i)
    if (kOrder[i] == kind) return i;
  return -1;
}

}  // namespace

int SymbolListCompare(const SymbolRef& a, const SymbolRef& b) {
  const uint32_t ca = a.def->bits & kClassBits, cb = b.def->bits & kClassBits;
  if (ca == cb) return SymbolCompare(a, b);
  const int ra = ListRank(ca);
  return ra < 0 || ra < ListRank(cb) ? -1 : 1;
}

SharedText SymbolENode::Print() const {
  SharedText text(def->name, static_cast<int32_t>(strnlen(def->name, kNameLimit)));
  if (index2 != -1) return text + "(" + IntegerToText(index1, 0) + "," + IntegerToText(index2, 0) + ")";
  if (index1 != 0) return text + "(" + IntegerToText(index1, 0) + ")";
  return text;
}

bool SymbolENode::IsEqual(const ENode& other) const {
  const auto& b = static_cast<const SymbolENode&>(other);
  return hash == b.hash && def == b.def && index1 == b.index1 && index2 == b.index2;
}

int SymbolENode::Compare(const ENode& other) const {
  return SymbolCompare(*this, static_cast<const SymbolENode&>(other));
}

namespace {

bool StandsIn(const SymbolENode& symbol, const SymbolRef* symbols, int32_t count) {
  for (int32_t i = 0; i < count; ++i) {
    if (symbols[i].def != symbol.def) continue;
    if ((symbol.def->bits & kLaggedClasses) != 0) return true;
    if (symbols[i].index1 == symbol.index1 && symbols[i].index2 == symbol.index2) return true;
  }
  return false;
}

}  // namespace

// Post-order with an explicit stack of "a child was marked" bits, so any depth is safe.
bool MarkSymbolUsers(ENode* root, const SymbolRef* symbols, int32_t count, uint32_t bits, uint32_t mask) {
  std::vector<bool> childMarked{false};
  ENode* node = root;
  for (;;) {
    if (node->firstChild != nullptr) {
      childMarked.push_back(false);
      node = node->firstChild;
      continue;
    }
    for (;;) {
      bool marked = false;
      if (node->GetType() == SymbolType)
        marked = StandsIn(static_cast<const SymbolENode&>(*node), symbols, count);
      if (node->firstChild != nullptr) {
        marked = childMarked.back() && node->GetType() == FunctionType;
        childMarked.pop_back();
      }
      if (marked) {
        node->flags = (node->flags & mask) | bits;
        childMarked.back() = true;
      }
      if (node == root) return childMarked.back();
      if (node->next != nullptr) {
        node = node->next;
        break;
      }
      node = node->parent;
    }
  }
}

}  // namespace quillon
