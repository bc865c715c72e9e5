// ErrorENode equality and order, by the bytes of the message.
#include "core/error_node.h"

namespace quillon {

bool ErrorENode::IsEqual(const ENode& other) const {
  return message.Compare(static_cast<const ErrorENode&>(other).message) == 0;
}

int ErrorENode::Compare(const ENode& other) const {
  return message.Compare(static_cast<const ErrorENode&>(other).message);
}

}  // namespace quillon
