// The table of inverse functions that normalizing an equation peels off its left side: log and
// exp, and the cumulative distributions with their quantile functions.
#pragma once

#include "core/function_def.h"

namespace quillon {

// The inverse of def, or null when def has none in the table. Thread-safe: the table is filled
// once, at the first call, and read-only afterwards.
FunctionDef* InverseOf(const FunctionDef* def);

}  // namespace quillon
