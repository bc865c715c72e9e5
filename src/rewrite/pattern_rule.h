// PatternRule: a rule given by two texts of the language, a pattern and its replacement, parsed
// and prepared once when the catalogue is built.
#pragma once

#include "core/expr_handle.h"
#include "core/rule.h"
#include "language/thread_context.h"

namespace quillon {

// <pattern> --> <replacement>   when the pattern matches the node exactly (no reordering)
// Wildcards #0 to #9 bind whole subtrees; a repeated wildcard must bind equal trees.
class PatternRule final : public Rule {
 public:
  PatternRule(ThreadContext& context, const char* fromText, const char* toText, uint32_t mode);
  uint32_t Apply(ENode** node) override;

  ExprHandle pattern;
  ExprHandle replacement;
};

}  // namespace quillon
