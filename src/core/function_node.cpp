// FunctionENode hash, text and order.
#include "core/function_node.h"

#include "shared/conversions.h"
#include "shared/hash.h"
#include "shared/text_builder.h"

namespace quillon {

uint32_t FunctionENode::Hash() const { return MixHash(derivative) ^ def->hash; }

// The name as defined, with the derivative notation f[1,0] when there is one and arguments.
SharedText FunctionENode::Print() const {
  TextBuilder out(32);
  out.Append(def->name, static_cast<int32_t>(strnlen(def->name, kNameLimit)));
  if (derivative != 0 && childCount > 0) {
    out.AppendChar('[');
    for (int32_t i = 0; i < childCount; ++i) {
      if (i > 0) out.AppendChar(',');
      out.Append(IntegerToText(static_cast<int32_t>((derivative >> ((4 * i) & 31)) & 15), 0));
    }
    out.AppendChar(']');
  }
  return out.Take();
}

bool FunctionENode::IsEqual(const ENode& other) const {
  const auto& b = static_cast<const FunctionENode&>(other);
  return def == b.def && derivative == b.derivative;
}

int FunctionENode::Compare(const ENode& other) const {
  const auto& b = static_cast<const FunctionENode&>(other);
  if (def != b.def) return NameCompare(def->name, b.def->name);
  return derivative < b.derivative ? -1 : (derivative > b.derivative ? 1 : 0);
}

}  // namespace quillon
