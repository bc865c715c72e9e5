// What the exports need of the life cycle: the calling thread's parser context.
#pragma once

#include "language/thread_context.h"

namespace quillon {

// The calling thread's context, made (and the catalogue built) on first use.
ThreadContext* EnsureThreadContext();

// The empty expression, with the library started first: the neutral answer to a NULL handle may
// be the first handle a host gets, and it may go on to any export.
ExprHandle StartedEmpty();

}  // namespace quillon
