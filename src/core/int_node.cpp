// IntENode hash, text and order.
#include "core/int_node.h"

#include "shared/conversions.h"
#include "shared/hash.h"

namespace quillon {

uint32_t IntENode::Hash() const { return MixHash(static_cast<uint32_t>(value)); }

SharedText IntENode::Print() const { return IntegerToText(value, 0); }

int IntENode::Compare(const ENode& other) const {
  const int32_t b = static_cast<const IntENode&>(other).value;
  return value < b ? -1 : (value > b ? 1 : 0);
}

}  // namespace quillon
