// The set of threads that have a context, and the release of a thread's context when it ends.
// The per-thread word itself is the platform's (thread_slot_posix.cpp, thread_slot_windows.cpp).
#include "language/thread_context.h"

namespace quillon {

void ReleaseThreadContext(ThreadContext** word) {
  std::lock_guard<std::mutex> guard(InitLock());
  ThreadSet().erase(word);
  RetireContext(*word);
  *word = nullptr;
}

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

}  // namespace quillon
