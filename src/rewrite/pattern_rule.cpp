// PatternRule: preparation of the two trees, matching against a pattern, and instantiation of
// the replacement with the bound subtrees.
#include "rewrite/pattern_rule.h"

#include <vector>

#include "core/node_order.h"
#include "core/tree_walk.h"
#include "core/wildcard_node.h"
#include "rewrite/driver.h"

namespace quillon {
namespace {

constexpr int32_t kBindingSlots = 10;

// The subtrees bound to wildcards #0 to #9 during one Apply. Each binding holds one use of its
// node, so that it outlives the destruction of the matched tree; the release frees a binding
// that the replacement did not link in. A binding that became the result itself (a replacement
// that is a lone wildcard, at the root of a tree) is free too, but the tree owns it.
class BindingTable {
 public:
  BindingTable() = default;
  BindingTable(const BindingTable&) = delete;
  BindingTable& operator=(const BindingTable&) = delete;
  ~BindingTable() {
    for (ENode*& bound : slots) {
      if (bound == nullptr) continue;
      if (--bound->useCount == 0 && bound->parent == nullptr && bound != result) bound->DestroyTree();
      bound = nullptr;
    }
  }

  // The first occurrence of a wildcard binds node; a later one must meet an equal tree. An index
  // outside the table never matches.
  bool Bind(int32_t index, ENode* node) {
    if (index < 0 || index >= kBindingSlots) return false;
    if (slots[index] != nullptr) return NodeEqual(node, slots[index]);
    ++node->useCount;
    slots[index] = node;
    return true;
  }

  ENode* slots[kBindingSlots] = {};
  const ENode* result = nullptr;  // what stands in the matched node's place
};

// How often the replacement uses each slot. False when it uses a slot that the match left empty
// or one outside the table, which Clone could not fill: the rule then does not apply.
bool CountUses(const ENode* replacement, const BindingTable& table, int32_t (&uses)[kBindingSlots]) {
  for (const ENode* n = replacement; n != nullptr; n = NextInPreorder(n, replacement)) {
    if (n->GetType() != WildcardType || (n->flags & FlagHeld) != 0) continue;
    const int32_t index = static_cast<const WildcardENode*>(n)->index;
    if (index < 0 || index >= kBindingSlots || table.slots[index] == nullptr) return false;
    ++uses[index];
  }
  return true;
}

// Wildcards of the subject (a host may write #3 in a formula) are no part of the replacement,
// but Clone would take them for its own and look them up in the table: beyond its end, or round
// for ever when #1 is bound to #1. They are held while the replacement is copied, wherever Clone
// meets them: a binding that is a wildcard itself, and the inside of a binding that the
// replacement uses more than once, which is copied. Nothing is allocated when there are none.
class HeldSubjectWildcards {
 public:
  HeldSubjectWildcards(const BindingTable& table, const int32_t (&uses)[kBindingSlots]) {
    for (int32_t i = 0; i < kBindingSlots; ++i) {
      ENode* bound = table.slots[i];
      if (bound == nullptr) continue;
      if (uses[i] < 2) {
        Hold(bound);
        continue;
      }
      for (ENode* n = bound; n != nullptr; n = NextInPreorder(n, bound)) Hold(n);
    }
  }
  HeldSubjectWildcards(const HeldSubjectWildcards&) = delete;
  HeldSubjectWildcards& operator=(const HeldSubjectWildcards&) = delete;
  ~HeldSubjectWildcards() {
    for (ENode* n : held_) n->flags &= ~FlagHeld;
  }

 private:
  void Hold(ENode* n) {
    if (n->GetType() != WildcardType || (n->flags & FlagHeld) != 0) return;
    n->flags |= FlagHeld;
    held_.push_back(n);
  }

  std::vector<ENode*> held_;
};

// Walks both trees in step, left to right. Recurses only where the pattern has children, so the
// depth is bounded by the pattern's, not the subject's.
bool Match(ENode* node, const ENode* pattern, BindingTable& table) {
  if (pattern->GetType() == WildcardType)
    return table.Bind(static_cast<const WildcardENode*>(pattern)->index, node);
  if (node->childCount != pattern->childCount) return false;
  if (NodeCompare(node, pattern) != 0) return false;
  const ENode* p = pattern->firstChild;
  for (ENode* c = node->firstChild; c != nullptr; c = c->next, p = p->next)
    if (!Match(c, p, table)) return false;
  return true;
}

// Simplifies the replacement with its wildcards held, so that nothing folds them, and leaves its
// symbols, calls and wildcards unsettled, so that every instantiated copy is visited; its numbers
// stay settled, as they are simplified already.
void PrepareReplacement(ExprHandle& replacement) {
  replacement.Root()->SetFlagsByType(WildcardType, FlagHeld);
  Evaluate(replacement, ModeSimplify | ModeCanonical);
  replacement.Root()->ClearFlagsByType(SymbolType | FunctionType | WildcardType, FlagSettled | FlagHeld);
}

}  // namespace

PatternRule::PatternRule(ThreadContext& context, const char* fromText, const char* toText, uint32_t mode)
    : Rule(mode) {
  pattern = context.ParseText(SharedText(fromText), nullptr, 0);
  if ((mode & ModeCanonical) == 0) Evaluate(pattern, ModeSimplify | ModeCanonical);
  replacement = context.ParseText(SharedText(toText), nullptr, 0);
  if ((mode & ModeDisplay) == 0) PrepareReplacement(replacement);
}

uint32_t PatternRule::Apply(ENode** node) {
  BindingTable table;
  if (!Match(*node, pattern.Root(), table)) return 0;
  int32_t uses[kBindingSlots] = {};
  if (!CountUses(replacement.Root(), table, uses)) return 0;
  const HeldSubjectWildcards opaque(table, uses);
  *node = (*node)->ReplaceWith(replacement.Root(), table.slots);
  table.result = *node;
  return 1;
}

}  // namespace quillon
