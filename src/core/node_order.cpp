// Node order and equality. The walks step through both trees in lockstep: equality by their
// links alone, the order with a stack of child lists on the heap, so depth costs no stack.
#include "core/node_order.h"

#include <utility>
#include <vector>

#include "core/function_node.h"
#include "core/tree_walk.h"

namespace quillon {
namespace {

bool SameNode(const ENode* a, const ENode* b) {
  return a->childCount == b->childCount && a->GetType() == b->GetType() && a->IsEqual(*b);
}

// The definition of a function node that sorts where its key child sorts, else null. A call
// without arguments has no key child and sorts as itself.
const FunctionDef* OrderThroughDef(const ENode* node) {
  const FunctionDef* def = DefOf(node);
  if (def == nullptr || (def->attributes & AttrOrderThrough) == 0 || node->firstChild == nullptr) return nullptr;
  return def;
}

bool FromLast(const FunctionDef* def) { return (def->attributes & AttrOrderFromLast) != 0; }

const ENode* KeyChild(const ENode* node, const FunctionDef* def) {
  return FromLast(def) ? node->lastChild : node->firstChild;
}

// Lets a and b stand for their key children while one of them orders through and they are not
// calls of the same function; the one that binds more loosely opens first. Returns what the
// comparison is when what remains compares equal: the plain side first (1 when a was opened
// last, -1 when b was), or 0 when nothing was opened.
int LookThrough(const ENode*& a, const ENode*& b) {
  int tie = 0;
  for (;;) {
    const FunctionDef* da = OrderThroughDef(a);
    const FunctionDef* db = OrderThroughDef(b);
    if (da != nullptr && da == db) return tie;
    if (da != nullptr && (db == nullptr || da->priority < db->priority)) {
      a = KeyChild(a, da);
      tie = 1;
    } else if (db != nullptr) {
      b = KeyChild(b, db);
      tie = -1;
    } else {
      return tie;
    }
  }
}

// Two child lists under comparison: the pair to compare next (null past an end), the direction,
// and the result for their parents if the lists turn out equal.
struct ChildPairs {
  const ENode* a;
  const ENode* b;
  bool fromLast;
  int tie;
};

// The lists under comparison, innermost last. Most comparisons nest a few levels and stay in
// the inline part; a long chain of one function spills to the heap.
class PendingLists {
 public:
  bool Empty() const { return size_ == 0; }
  ChildPairs& Top() { return size_ <= kInline ? inline_[size_ - 1] : spill_.back(); }
  void Push(const ChildPairs& pairs) {
    if (size_ < kInline)
      inline_[size_] = pairs;
    else
      spill_.push_back(pairs);
    ++size_;
  }
  void Pop() {
    if (size_ > kInline) spill_.pop_back();
    --size_;
  }

 private:
  static constexpr int32_t kInline = 16;
  ChildPairs inline_[kInline];
  std::vector<ChildPairs> spill_;
  int32_t size_ = 0;
};

void Advance(ChildPairs& pairs) {
  pairs.a = pairs.fromLast ? pairs.a->prev : pairs.a->next;
  pairs.b = pairs.fromLast ? pairs.b->prev : pairs.b->next;
}

}  // namespace

int NodeCompare(const ENode* a, const ENode* b) {
  const uint32_t ta = a->GetType(), tb = b->GetType();
  if (ta == tb) return a->Compare(*b);
  return ta < tb ? -1 : 1;
}

// Every result other than 0 decides the whole comparison, whatever level it comes from, so it
// is returned at once; a 0 moves on to the next pair of children or closes the lists.
int32_t NodeOrder(const ENode* a, const ENode* b) {
  PendingLists pending;
  for (;;) {
    const int tie = LookThrough(a, b);
    if (a != b) {
      const int r = NodeCompare(a, b);
      if (r != 0) return r;
    }
    if (a != b && (a->firstChild != nullptr || b->firstChild != nullptr)) {
      const FunctionDef* def = DefOf(a);
      const bool fromLast = def != nullptr && FromLast(def);
      pending.Push({fromLast ? a->lastChild : a->firstChild, fromLast ? b->lastChild : b->firstChild, fromLast, tie});
    } else if (tie != 0) {
      return tie;
    } else if (pending.Empty()) {
      return 0;
    } else {
      Advance(pending.Top());
    }
    for (;;) {
      ChildPairs& top = pending.Top();
      if (top.a != nullptr && top.b != nullptr) {
        a = top.a;
        b = top.b;
        break;
      }
      if (top.a != nullptr) return 1;
      if (top.b != nullptr) return -1;
      const int listsTie = top.tie;
      pending.Pop();
      if (listsTie != 0) return listsTie;
      if (pending.Empty()) return 0;
      Advance(pending.Top());
    }
  }
}

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

namespace {

// Sifts the element at heap position i (1-based) down a heap of n: the greater child moves up
// while it is greater than the element.
void SiftDown(ENode** nodes, int32_t i, int32_t n) {
  ENode* moved = nodes[i - 1];
  for (int32_t j = 2 * i; j <= n; j *= 2) {
    if (j < n && NodeOrder(nodes[j - 1], nodes[j]) < 0) ++j;
    if (NodeOrder(nodes[j - 1], moved) <= 0) break;
    nodes[i - 1] = nodes[j - 1];
    i = j;
  }
  nodes[i - 1] = moved;
}

}  // namespace

void HeapSortNodes(ENode** nodes, int32_t count) {
  for (int32_t i = count / 2; i >= 1; --i) SiftDown(nodes, i, count);
  for (int32_t n = count; n > 1; --n) {
    std::swap(nodes[0], nodes[n - 1]);
    SiftDown(nodes, 1, n - 1);
  }
}

}  // namespace quillon
