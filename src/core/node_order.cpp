// Node order and equality. The walks step through both trees in lockstep by their links, so
// they need no stack whatever the depth.
#include "core/node_order.h"

#include "core/tree_walk.h"

namespace quillon {
namespace {

bool SameNode(const ENode* a, const ENode* b) {
  return a->childCount == b->childCount && a->GetType() == b->GetType() && a->IsEqual(*b);
}

}  // namespace

// Equal child counts at every node keep the two pre-order walks in step.
bool NodeEqual(const ENode* a, const ENode* b) {
  const ENode* x = a;
  const ENode* y = b;
  while (x != nullptr) {
    if (!SameNode(x, y)) return false;
    x = NextInPreorder(x, a);
    y = NextInPreorder(y, b);
  }
  return true;
}

bool TailEqual(const ENode* a, const ENode* b) {
  for (; a != nullptr && b != nullptr; a = a->next, b = b->next)
    if (!NodeEqual(a, b)) return false;
  return a == nullptr && b == nullptr;
}

bool TailEqualBackward(const ENode* a, const ENode* b) {
  for (; a != nullptr && b != nullptr; a = a->prev, b = b->prev)
    if (!NodeEqual(a, b)) return false;
  return a == nullptr && b == nullptr;
}

}  // namespace quillon
