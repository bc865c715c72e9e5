// The per-thread context word on POSIX systems: a thread_local slot whose destructor releases
// the context when the thread ends.
#include "language/thread_context.h"

namespace quillon {
namespace {

struct ContextSlot {
  ThreadContext* context = nullptr;
  bool registered = false;
  ~ContextSlot() {
    if (registered) ReleaseThreadContext(&context);
  }
};

thread_local ContextSlot slot;

}  // namespace

ThreadContext*& ContextWord() { return slot.context; }

void RegisterThisThread() {
  slot.registered = true;
  ThreadSet().insert(&slot.context);
}

}  // namespace quillon
