// The rule catalogue: which rule stands on which function, in which mode and order.
#pragma once

#include "core/function_table.h"
#include "language/thread_context.h"

namespace quillon {

// Makes every rule and attaches it, in the catalogue's order. Pattern rules parse and prepare
// their texts with context, seeing only the rules attached before them.
void AttachRuleCatalogue(ThreadContext& context);

}  // namespace quillon
