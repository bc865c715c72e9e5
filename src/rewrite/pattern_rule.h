// PatternRule: a rule given by two texts of the language, a pattern and its replacement, parsed
// and prepared once when the catalogue is built. The catalogue's texts are in rule_catalogue.cpp.
#pragma once

#include <cstdint>

#include "core/enode.h"
#include "core/expr_handle.h"
#include "core/rule.h"
#include "language/thread_context.h"

namespace quillon {

// <pattern> --> <replacement>   when the node matches the pattern child for child
// Wildcards #0 to #9 bind whole subtrees of any class; a repeated wildcard must bind a tree equal
// to its first binding. No reordering or regrouping is tried: both trees are prepared into the
// simplified form the subject has, so sorted children already stand in the order to compare.
// A pattern of the canonical mode is kept as parsed, or preparing it would remove what it is to
// match; a replacement of the display mode is kept as parsed, or preparing it would turn the
// form for reading back. A quotient pattern of the display mode is prepared into a product, so
// when it stands on @divide it never matches: hosts read the text that follows from that.
class PatternRule final : public Rule {
 public:
  // Parses both texts with context's parser (no symbol table) and prepares them with the rules
  // attached so far, so the order of construction decides the trees.
  PatternRule(ThreadContext& context, const char* fromText, const char* toText, uint32_t mode);
  // 1 when *node matched: *node is then the instantiated replacement. Otherwise 0, tree as it was.
  uint32_t Apply(ENode** node) override;

  ExprHandle pattern;
  ExprHandle replacement;
};

}  // namespace quillon
