// The per-thread context word and the set of threads that have one.
#include "language/thread_context.h"

namespace quillon {
namespace {

// Owns the calling thread's context; when the thread ends, the context goes with it and the
// thread leaves the set.
struct ContextSlot {
  ThreadContext* context = nullptr;
  bool registered = false;
  ~ContextSlot() {
    if (!registered) return;
    std::lock_guard<std::mutex> guard(InitLock());
    ThreadSet().erase(&context);
    RetireContext(context);
  }
};

thread_local ContextSlot slot;

}  // namespace

ThreadContext*& ContextWord() { return slot.context; }

void RetireContext(ThreadContext* context) {
  if (context != nullptr && context->parsing_)
    context->retired_ = true;
  else
    delete context;
}

std::mutex& InitLock() {
  static std::mutex lock;
  return lock;
}

std::unordered_set<ThreadContext**>& ThreadSet() {
  static std::unordered_set<ThreadContext**> threads;
  return threads;
}

void RegisterThisThread() {
  slot.registered = true;
  ThreadSet().insert(&slot.context);
}

}  // namespace quillon
