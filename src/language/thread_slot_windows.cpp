// The per-thread context word on Windows: a word on the heap, found through a fiber-local slot
// whose callback releases the context when the thread ends. A thread_local with a destructor is
// not used here: in a statically linked DLL its destructor can run after its storage is gone.
#include <windows.h>

#include "language/thread_context.h"

namespace quillon {
namespace {

struct ContextSlot {
  ThreadContext* context = nullptr;
  bool registered = false;
};

void WINAPI ReleaseSlot(void* value) {
  auto* slot = static_cast<ContextSlot*>(value);
  if (slot == nullptr) return;
  if (slot->registered) ReleaseThreadContext(&slot->context);
  delete slot;
}

DWORD SlotIndex() {
  static const DWORD index = FlsAlloc(ReleaseSlot);
  return index;
}

ContextSlot& Slot() {
  auto* slot = static_cast<ContextSlot*>(FlsGetValue(SlotIndex()));
  if (slot == nullptr) {
    slot = new ContextSlot;
    FlsSetValue(SlotIndex(), slot);
  }
  return *slot;
}

}  // namespace

ThreadContext*& ContextWord() { return Slot().context; }

void RegisterThisThread() {
  ContextSlot& slot = Slot();
  slot.registered = true;
  ThreadSet().insert(&slot.context);
}

}  // namespace quillon
