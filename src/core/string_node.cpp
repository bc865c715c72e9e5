// StringENode text and order.
#include "core/string_node.h"

#include "shared/text_builder.h"

namespace quillon {

// Quoted, with each quotation mark doubled: what the lexer reads back.
SharedText StringENode::Print() const {
  TextBuilder out(text.TextLength() + 2);
  out.AppendChar('"');
  for (int32_t i = 0; i < text.TextLength(); ++i) {
    if (text.At(i) == '"') out.AppendChar('"');
    out.AppendChar(text.At(i));
  }
  out.AppendChar('"');
  return out.Take();
}

bool StringENode::IsEqual(const ENode& other) const {
  return text.Compare(static_cast<const StringENode&>(other).text) == 0;
}

int StringENode::Compare(const ENode& other) const { return text.Compare(static_cast<const StringENode&>(other).text); }

}  // namespace quillon
