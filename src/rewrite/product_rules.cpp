// Implementation of the rules declared in product_rules.h.
#include "rewrite/product_rules.h"

namespace quillon {

uint32_t TimesRule::Apply(ENode**) { return 0; }

uint32_t TimesRule3::Apply(ENode**) { return 0; }

uint32_t TimesRule2::Apply(ENode**) { return 0; }

uint32_t TimesRule4::Apply(ENode**) { return 0; }

uint32_t TimesRule5::Apply(ENode**) { return 0; }

uint32_t TimesRule6::Apply(ENode**) { return 0; }

}  // namespace quillon
