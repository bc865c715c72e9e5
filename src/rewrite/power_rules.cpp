// Implementation of the rules declared in power_rules.h.
#include "rewrite/power_rules.h"

namespace quillon {

uint32_t PowerRule::Apply(ENode**) { return 0; }

uint32_t PowerRule2::Apply(ENode**) { return 0; }

uint32_t PowerRule3::Apply(ENode**) { return 0; }

uint32_t PowerRule5::Apply(ENode**) { return 0; }

uint32_t PowerRule6::Apply(ENode**) { return 0; }

}  // namespace quillon
