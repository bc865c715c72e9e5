// Whole-tree walks of ENode: pre-order stepping, copies, shifts, hashes and flags.
// Copies keep an explicit stack on the heap instead of recursing.
#include "core/tree_walk.h"

#include <vector>

#include "core/function_node.h"
#include "core/symbol_node.h"
#include "core/wildcard_node.h"
#include "shared/hash.h"

namespace quillon {

ENode* NextSkippingChildren(const ENode* node, const ENode* root) {
  while (node != root) {
    if (node->next != nullptr) return node->next;
    node = node->parent;
  }
  return nullptr;
}

ENode* NextInPreorder(const ENode* node, const ENode* root) {
  return node->firstChild != nullptr ? node->firstChild : NextSkippingChildren(node, root);
}

int32_t CountNodes(const ENode* root) {
  int32_t count = 0;
  for (const ENode* n = root; n != nullptr; n = NextInPreorder(n, root)) ++count;
  return count;
}

namespace {

struct CopyStep {
  const ENode* source;
  ENode* into;  // the copy's parent, null for the root
};

// The one copy loop behind Clone and CloneShifted. `copyNode` makes the copy of one node (or,
// for a node that must not be entered, of its whole subtree) and says whether to enter the
// source's children.
template <class CopyNode>
ENode* CopyTree(const ENode* root, CopyNode copyNode) {
  ENode* result = nullptr;
  std::vector<CopyStep> pending{{root, nullptr}};
  while (!pending.empty()) {
    const CopyStep step = pending.back();
    pending.pop_back();
    const ENode* source = step.source;
    bool enter = true;
    ENode* copy = copyNode(source, enter);
    if (step.into != nullptr)
      step.into->AppendChild(copy);
    else
      result = copy;
    if (!enter) continue;
    for (const ENode* c = source->lastChild; c != nullptr; c = c->prev) pending.push_back({c, copy});
  }
  return result;
}

// The tree a wildcard of the copied tree stands for, or null when it stands for nothing: a node
// that is no wildcard, a held wildcard, or an index without a tree in bindings.
const ENode* BoundTree(const ENode* node, Bindings bindings) {
  if (bindings.empty() || node->GetType() != WildcardType || (node->flags & FlagHeld) != 0) return nullptr;
  const int32_t index = static_cast<const WildcardENode*>(node)->index;
  if (index < 0 || static_cast<size_t>(index) >= bindings.size()) return nullptr;
  return bindings[static_cast<size_t>(index)];
}

// A free bound tree goes into a copy itself at its first use; after that it has a parent, and
// later uses copy it. A tree that another handle also holds is copied even at its first use:
// linked in, it would be part of two trees at once.
bool IsTakeable(const ENode* bound) { return bound->parent == nullptr && bound->useCount <= 1; }

bool IsAggregate(const ENode* node) {
  const FunctionDef* def = DefOf(node);
  return def != nullptr && (def->attributes & AttrAggregate) != 0;
}

void ShiftOne(ENode* node, int32_t k) {
  if (node->GetType() != SymbolType) return;
  auto* symbol = static_cast<SymbolENode*>(node);
  if ((symbol->def->bits & kLaggedClasses) == 0) return;
  symbol->index1 += k;
  symbol->ComputeHash();
}

}  // namespace

ENode* ENode::Clone(Bindings bindings) const {
  return CopyTree(this, [bindings](const ENode* source, bool& enter) -> ENode* {
    const ENode* bound = BoundTree(source, bindings);
    if (bound == nullptr) return source->CloneNode();
    // The bound tree is taken as it stands: its own wildcards (a host may write #3) are plain
    // nodes, and looking them up would read beyond the bindings or go round for ever.
    enter = false;
    if (IsTakeable(bound)) return const_cast<ENode*>(bound);
    return bound->Clone();
  });
}

ENode* ENode::CloneShifted(int32_t k) const {
  return CopyTree(this, [k](const ENode* source, bool& enter) -> ENode* {
    if (IsAggregate(source)) {
      enter = false;
      return source->Clone();
    }
    ENode* copy = source->CloneNode();
    ShiftOne(copy, k);
    return copy;
  });
}

void ENode::ShiftSymbols(int32_t k) {
  for (ENode* n = this; n != nullptr;) {
    if (IsAggregate(n)) {
      n = NextSkippingChildren(n, this);
      continue;
    }
    ShiftOne(n, k);
    n = NextInPreorder(n, this);
  }
}

void ENode::SetFlagsByType(uint32_t mask, uint32_t bits) {
  for (ENode* n = this; n != nullptr; n = NextInPreorder(n, this))
    if ((n->GetType() & mask) != 0) n->flags |= bits;
}

void ENode::ClearFlagsByType(uint32_t mask, uint32_t bits) {
  for (ENode* n = this; n != nullptr; n = NextInPreorder(n, this))
    if ((n->GetType() & mask) != 0) n->flags &= ~bits;
}

// Post-order by the parent links: each finished subtree's hash is rotated by its position and
// folded into its parent's, held on a stack of partial hashes.
uint32_t TreeHash(const ENode* root) {
  std::vector<uint32_t> partial;
  std::vector<uint32_t> position;
  const ENode* node = root;
  for (;;) {
    partial.push_back(node->Hash());
    if (node->firstChild != nullptr) {
      position.push_back(0);
      node = node->firstChild;
      continue;
    }
    for (;;) {
      if (node == root) return partial.back();
      const uint32_t done = partial.back();
      partial.pop_back();
      partial.back() ^= RotateLeft(done, position.back()++);
      if (node->next != nullptr) {
        node = node->next;
        break;
      }
      node = node->parent;
      position.pop_back();
    }
  }
}

}  // namespace quillon
