// The ENode base: construction and destruction counting, and the tree operations that relink
// nodes locally. Operations that walk whole trees are in tree_walk.cpp.
#include "core/enode.h"

#include <atomic>
#include <bit>
#include <cassert>

#include "core/function_node.h"
#include "core/void_node.h"

namespace quillon {
namespace {

// Relaxed: threads building their own trees only need the count to be exact, not ordered.
std::atomic<int64_t> liveNodes{0};

}  // namespace

double NA() { return std::bit_cast<double>(0xFFF8000000000000ull); }
bool IsNA(double value) { return std::bit_cast<uint64_t>(value) == 0xFFF8000000000000ull; }

ENode::ENode(uint32_t initialFlags) : flags(initialFlags) { liveNodes.fetch_add(1, std::memory_order_relaxed); }

ENode::~ENode() {
  Unlink();
  liveNodes.fetch_sub(1, std::memory_order_relaxed);
}

int64_t LiveNodeCount() { return liveNodes.load(std::memory_order_relaxed); }

double ENode::GetValueAt(const double*, const double*) const { return GetValue(); }

ENode* ChildAt(const ENode* node, int32_t i) {
  ENode* c = node->firstChild;
  while (c != nullptr && i-- > 0) c = c->next;
  return c;
}

void ENode::AppendChild(ENode* child) {
  assert(child->parent == nullptr && "AppendChild needs a free node");
  child->parent = this;
  child->prev = lastChild;
  child->next = nullptr;
  if (lastChild != nullptr)
    lastChild->next = child;
  else
    firstChild = child;
  lastChild = child;
  ++childCount;
}

void ENode::PrependChild(ENode* child) {
  assert(child->parent == nullptr && "PrependChild needs a free node");
  child->parent = this;
  child->prev = nullptr;
  child->next = firstChild;
  if (firstChild != nullptr)
    firstChild->prev = child;
  else
    lastChild = child;
  firstChild = child;
  ++childCount;
}

void ENode::Unlink() {
  if (parent != nullptr) {
    if (prev != nullptr)
      prev->next = next;
    else
      parent->firstChild = next;
    if (next != nullptr)
      next->prev = prev;
    else
      parent->lastChild = prev;
    --parent->childCount;
  }
  parent = prev = next = nullptr;
}

// Iterative post-order: descend to a leaf, free it, climb. Nodes that handles use are unlinked
// on the way down and live on as free trees.
void ENode::DestroyTree() {
  Unlink();
  if (useCount > 0) return;
  ENode* node = this;
  for (;;) {
    if (ENode* child = node->firstChild) {
      if (child->useCount > 0)
        child->Unlink();
      else
        node = child;
      continue;
    }
    ENode* up = node->parent;
    const bool done = node == this;
    delete node;
    if (done) return;
    node = up;
  }
}

ENode* ENode::Splice() {
  ENode* result = firstChild != nullptr ? firstChild : next;
  ENode* at = next;
  ENode* owner = parent;
  Unlink();
  while (ENode* child = firstChild) {
    child->Unlink();
    if (owner != nullptr) owner->LinkBefore(child, at);
  }
  DestroyTree();
  return result;
}

void ENode::SwapPlaces(ENode* other) {
  if (other == this) return;
  ENode* p1 = parent;
  ENode* p2 = other->parent;
  // Adjacent siblings need care: each is the other's neighbour.
  if (next == other || other->next == this) {
    ENode* first = next == other ? this : other;
    ENode* second = first == this ? other : this;
    ENode* before = first->prev;
    ENode* after = second->next;
    second->prev = before;
    second->next = first;
    first->prev = second;
    first->next = after;
    if (before != nullptr) before->next = second; else p1->firstChild = second;
    if (after != nullptr) after->prev = first; else p1->lastChild = first;
    return;
  }
  ENode* prev1 = prev;
  ENode* next1 = next;
  ENode* prev2 = other->prev;
  ENode* next2 = other->next;
  parent = p2;
  prev = prev2;
  next = next2;
  other->parent = p1;
  other->prev = prev1;
  other->next = next1;
  if (p1 != nullptr) {
    if (prev1 != nullptr) prev1->next = other; else p1->firstChild = other;
    if (next1 != nullptr) next1->prev = other; else p1->lastChild = other;
  }
  if (p2 != nullptr) {
    if (prev2 != nullptr) prev2->next = this; else p2->firstChild = this;
    if (next2 != nullptr) next2->prev = this; else p2->lastChild = this;
  }
}

ENode* ENode::ReplaceWith(const ENode* other, Bindings bindings) {
  ENode* placeholder = new VoidENode();
  SwapPlaces(placeholder);
  DestroyTree();
  ENode* copy = other->Clone(bindings);
  placeholder->SwapPlaces(copy);
  placeholder->DestroyTree();
  return copy;
}

void ENode::DistributeOverList() {
  ENode* list = this;
  ENode* templateNode = list->parent;
  templateNode->flags &= ~FlagSettled;
  ENode* placeholder = new VoidENode();
  list->SwapPlaces(placeholder);
  templateNode->SwapPlaces(list);
  for (ENode* item = list->firstChild; item != nullptr;) {
    ENode* applied = item->next != nullptr ? templateNode->Clone() : templateNode;
    item->SwapPlaces(applied);
    ENode* hole = applied->firstChild;
    while (hole->GetType() != VoidType) hole = hole->next;
    hole->SwapPlaces(item);
    hole->DestroyTree();
    item->flags &= ~FlagSettled;
    item = applied->next;
  }
  // An empty list uses no copy of the template, which would be left over.
  if (list->childCount == 0) templateNode->DestroyTree();
  list->flags &= ~FlagSettled;
}

void ENode::SplitChildren(int32_t k, bool keepSingle) {
  if (k < 1 || k >= childCount) return;
  const int32_t total = childCount;
  ENode* rest = ChildAt(this, k);
  GroupRun(firstChild, k, keepSingle);
  GroupRun(rest, total - k, keepSingle);
}

void ENode::GroupRun(ENode* from, int32_t count, bool keepSingle) {
  if (keepSingle && count == 1) return;
  ENode* group = CloneNode();
  LinkBefore(group, from);
  for (ENode* c = from; count-- > 0;) {
    ENode* following = c->next;
    c->Unlink();
    group->AppendChild(c);
    c = following;
  }
}

void ENode::LinkBefore(ENode* child, ENode* at) {
  if (at == nullptr) return AppendChild(child);
  child->parent = this;
  child->next = at;
  child->prev = at->prev;
  if (child->prev != nullptr)
    child->prev->next = child;
  else
    firstChild = child;
  at->prev = child;
  ++childCount;
}

}  // namespace quillon
