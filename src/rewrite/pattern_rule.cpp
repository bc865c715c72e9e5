// PatternRule: preparation of the two trees, matching and instantiation.
#include "rewrite/pattern_rule.h"

namespace quillon {

PatternRule::PatternRule(ThreadContext&, const char*, const char*, uint32_t mode) : Rule(mode) {}

uint32_t PatternRule::Apply(ENode**) { return 0; }

}  // namespace quillon
