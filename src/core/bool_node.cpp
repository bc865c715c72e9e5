// BoolENode order.
#include "core/bool_node.h"

namespace quillon {

int BoolENode::Compare(const ENode& other) const {
  const int32_t b = static_cast<const BoolENode&>(other).value;
  return value < b ? -1 : (value > b ? 1 : 0);
}

}  // namespace quillon
