// WildcardENode values, hash, text and order.
#include "core/wildcard_node.h"

#include "shared/conversions.h"
#include "shared/hash.h"

namespace quillon {

double WildcardENode::GetValueAt(const double* t, const double* s) const {
  if (kind == 'S') return s[index];
  if (kind == 'T') return t[index];
  return NA();
}

uint32_t WildcardENode::Hash() const { return MixHash(static_cast<uint32_t>(index)) ^ 0xBEEFBEEFu; }

SharedText WildcardENode::Print() const {
  const char prefix[3] = {'#', kind, 0};
  return prefix + IntegerToText(index, 0);
}

bool WildcardENode::IsEqual(const ENode& other) const {
  const auto& b = static_cast<const WildcardENode&>(other);
  return index == b.index && kind == b.kind;
}

int WildcardENode::Compare(const ENode& other) const {
  const auto& b = static_cast<const WildcardENode&>(other);
  const auto ka = static_cast<signed char>(kind), kb = static_cast<signed char>(b.kind);
  if (ka != kb) return ka < kb ? -1 : 1;
  return index < b.index ? -1 : (index > b.index ? 1 : 0);
}

}  // namespace quillon
