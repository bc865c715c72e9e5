// The rewrite driver. Every symbolic operation is a rule, and this is the one loop that runs
// them: children first, then the rules of the node's function, to a fixed point.
//
// What a settled tree is guaranteed to have, in the modes that ran:
//  - ModeSimplify: no function node has a child of its own associative function, no node of a
//    collapsing function has a single child, and the children of commutative functions are in
//    NodeOrder; no ErrorENode stands below the root.
//  - ModeCanonical: no @minus, @divide, @UnaryMinus, @UnaryPlus, @sqrt or @inv (their rules
//    replace them by @plus, @times and @pow).
//  - every node has FlagSettled, and no rule of the mode would change it.
//
// The descent keeps its frames on the heap, so that a chain of any depth (a long unflattened sum
// in the canonical stage) never reaches the end of the stack.
#include "rewrite/driver.h"

#include <algorithm>
#include <vector>

#include "core/function_node.h"
#include "core/node_order.h"
#include "core/rational_node.h"
#include "core/real_node.h"

namespace quillon {
namespace {

struct Frame {
  ENode* node;
  uint32_t mode;
  ENode* cursor;      // the child the current pass looks at
  bool inChildren;    // a pass is walking the children
};

// Puts the error child e in node's place and frees the rest; e is what the pass returns.
ENode* HoistError(ENode* node, ENode* e) {
  e->Unlink();
  node->SwapPlaces(e);
  node->DestroyTree();
  return e;
}

// Expansion and factoring undo each other, so no pass runs with both. The nearest wrapper
// decides for its subtree: its bit replaces the other one there.
constexpr uint32_t kOpposedModes = ModeExpand | ModeFactor;

uint32_t ChildMode(const ENode* node, uint32_t mode) {
  const FunctionDef* def = DefOf(node);
  const uint32_t own = def != nullptr ? def->childMode : 0;
  if ((own & kOpposedModes) != 0) mode &= ~kOpposedModes;
  return own | mode;
}

// Whether the wrapper node's subtree ran without a bit that the wrapper itself runs in: then
// its result is rewritten again in the wrapper's mode once the wrapper is gone, so that
// @factor(@expand(x)) factors what the expansion gave.
bool OverridesOuterMode(const FunctionDef* def, uint32_t mode) {
  return (def->childMode & kOpposedModes) != 0 && (mode & kOpposedModes & ~def->childMode) != 0;
}

bool Flattens(uint32_t mode, const ENode* node, const ENode* child) {
  if ((mode & (ModeSimplify | ModeFlatten)) == 0) return false;
  const FunctionDef* def = DefOf(node);
  return def != nullptr && (def->attributes & AttrAssociative) != 0 && DefOf(child) == def;
}

ENode* NumericRational(ENode* node) {
  ENode* real = new RealENode(node->GetValue());
  node->SwapPlaces(real);
  node->DestroyTree();
  return real;
}

// Tries the rules of the function of node until one changes something. Returns true when node
// (possibly replaced) is done: settled, or collapsed into its only child.
// The bits that select rules: the pass's mode and the node's own high bits. The canonical stage
// only replaces friendly functions, so the high bits that wrappers such as @factor hand to their
// arguments wait for the middle stage there: factoring an unsorted, unflattened sum would
// give nested results.
uint32_t SelectingBits(const ENode* node, uint32_t mode) {
  if ((mode & ModeCanonical) != 0) return mode & ~kNodeModeBits;
  return (node->flags & kNodeModeBits) | mode;
}

bool RunRules(ENode*& node, uint32_t mode) {
  FunctionDef* def = static_cast<FunctionENode*>(node)->def;
  for (Rule* rule = def->rules; rule != nullptr; rule = rule->next) {
    if ((rule->mode & SelectingBits(node, mode)) == 0) continue;
    if (rule->Apply(&node) != 0) return (node->flags & FlagSettled) != 0;
  }
  node->flags |= FlagSettled;
  return true;
}

// The second half of a pass, after the children: returns the node that ends the frame, or null
// when another pass must run on *node.
ENode* Dispatch(ENode*& node, uint32_t mode) {
  const uint32_t type = node->GetType();
  if (type == RationalType) {
    if ((mode & ModeNumeric) != 0 && (mode & ModeSimplify) != 0) node = NumericRational(node);
    node->flags |= FlagSettled;
    return node;
  }
  if (type != FunctionType) {
    node->flags |= FlagSettled;
    return node;
  }
  const FunctionDef* def = static_cast<FunctionENode*>(node)->def;
  if ((mode & ModeSimplify) != 0) {
    if ((def->attributes & AttrCollapseSingle) != 0 && node->childCount == 1) {
      ENode* only = node->firstChild;
      const bool again = OverridesOuterMode(def, mode);
      node->Splice();
      if (!again) return only;
      only->ClearFlagsByType(FunctionType, FlagSettled);
      node = only;
      return nullptr;
    }
    if ((def->attributes & AttrCommutative) != 0 && node->childCount > 1) SortChildren(node);
  }
  return RunRules(node, mode) ? node : nullptr;
}

}  // namespace

ENode* Rewrite(ENode* root, uint32_t mode) {
  std::vector<Frame> frames{{root, mode, nullptr, false}};
  ENode* finished = nullptr;  // result of the frame that just ended, for its parent
  for (;;) {
    Frame& frame = frames.back();
    if (finished != nullptr) {
      frame.cursor = finished;  // the rewritten child is looked at again by the tests below
      finished = nullptr;
    } else if (!frame.inChildren) {
      frame.inChildren = true;
      frame.cursor = frame.node->firstChild;
    }
    const uint32_t childMode = ChildMode(frame.node, frame.mode);
    ENode* result = nullptr;
    bool descend = false;
    while (ENode* child = frame.cursor) {
      if (child->GetType() == ErrorType) {
        result = HoistError(frame.node, child);
        break;
      }
      if (Flattens(frame.mode, frame.node, child)) {
        ENode* following = child->firstChild != nullptr ? child->firstChild : child->next;
        child->Splice();
        frame.cursor = following;
        continue;
      }
      if ((child->flags & (FlagSettled | FlagHeld)) == 0) {
        descend = true;
        break;
      }
      frame.cursor = child->next;
    }
    if (descend) {
      frames.push_back({frame.cursor, childMode, nullptr, false});
      continue;
    }
    if (result == nullptr) {
      result = Dispatch(frame.node, frame.mode);
      if (result == nullptr) {
        frame.inChildren = false;  // another pass on the node that now stands here
        continue;
      }
    }
    frames.pop_back();
    if (frames.empty()) return result;
    finished = result;
  }
}

void Evaluate(ExprHandle& handle, uint32_t mode) {
  // Rules relink, change and free nodes in place, so they work only on a tree that this handle
  // alone holds; otherwise on a copy, and every other handle keeps the tree it had.
  handle = handle.TakeOrCloneDeep();
  ENode* root = handle.LendRoot();
  uint32_t rest = mode;
  if ((mode & ModeCanonical) != 0) {
    root = Rewrite(root, ModeCanonical);
    rest &= ~ModeCanonical;
    root->ClearFlagsByType(RationalType | FunctionType | WildcardType, FlagSettled);
  }
  if ((rest & kOpposedModes) == kOpposedModes) {
    // Both bits: expand first, then factor the expanded tree.
    root = Rewrite(root, rest & ~(ModeDisplay | ModeFactor));
    root->ClearFlagsByType(FunctionType, FlagSettled);
    rest &= ~ModeExpand;
  }
  if ((rest & ~ModeDisplay) != 0) root = Rewrite(root, rest & ~ModeDisplay);
  if ((mode & ModeDisplay) != 0) {
    root->ClearFlagsByType(FunctionType, FlagSettled);
    root = Rewrite(root, ModeDisplay);
  }
  handle.ReturnRoot(root);
}

// Bottom-up: runs of width 1, 2, 4, ... are merged from the left, then the links are rebuilt. A
// left node is taken while it does not sort after the right one, so equal nodes keep their
// order. The merges run over arrays of the children rather than along the links: the same
// merges, in the same order, but each level reads its nodes in sequence, which keeps long sums
// from waiting on memory at every step.
void SortChildren(ENode* node) {
  // A pass after a rule fired meets children that are mostly in order already; a sorted list
  // would come out of the merges unchanged, so one walk decides whether to merge at all.
  bool sorted = true;
  for (const ENode* c = node->firstChild; sorted && c->next != nullptr; c = c->next) sorted = NodeOrder(c, c->next) <= 0;
  if (sorted) return;
  const size_t n = static_cast<size_t>(node->childCount);
  std::vector<ENode*> from;
  from.reserve(n);
  for (ENode* c = node->firstChild; c != nullptr; c = c->next) from.push_back(c);
  std::vector<ENode*> into(n);
  for (size_t width = 1; width < n; width *= 2) {
    for (size_t start = 0; start < n; start += 2 * width) {
      size_t left = start, right = std::min(start + width, n);
      const size_t leftEnd = right, rightEnd = std::min(start + 2 * width, n);
      for (size_t out = start; out < rightEnd; ++out) {
        const bool takeLeft = left < leftEnd && (right == rightEnd || NodeOrder(from[left], from[right]) <= 0);
        into[out] = takeLeft ? from[left++] : from[right++];
      }
    }
    from.swap(into);
  }
  ENode* previous = nullptr;
  for (ENode* c : from) {
    c->prev = previous;
    if (previous != nullptr) previous->next = c;
    previous = c;
  }
  previous->next = nullptr;
  node->firstChild = from.front();
  node->lastChild = previous;
}

}  // namespace quillon
