// Implementation of the rules declared in sign_logic_rules.h.
#include "rewrite/sign_logic_rules.h"

namespace quillon {

uint32_t UPlusRule::Apply(ENode**) { return 0; }

uint32_t UMinusRule::Apply(ENode**) { return 0; }

uint32_t MinusRule::Apply(ENode**) { return 0; }

uint32_t DivideRule::Apply(ENode**) { return 0; }

uint32_t AndRule::Apply(ENode**) { return 0; }

uint32_t OrRule::Apply(ENode**) { return 0; }

}  // namespace quillon
