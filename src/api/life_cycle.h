// What the exports need of the life cycle: the calling thread's parser context.
#pragma once

#include "language/thread_context.h"

namespace quillon {

// The calling thread's context, made (and the catalogue built) on first use.
ThreadContext* EnsureThreadContext();

}  // namespace quillon
