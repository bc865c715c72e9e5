// PatternRule: preparation of the two trees, matching against a pattern, and instantiation of
// the replacement with the bound subtrees.
#include "rewrite/pattern_rule.h"

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

// Whether every wildcard of the replacement has a binding; Clone could fill no other, and a
// rule's own wildcard must never reach the subject.
bool ReplacementIsBound(const ENode* replacement, const BindingTable& table) {
  for (const ENode* n = replacement; n != nullptr; n = NextInPreorder(n, replacement)) {
    if (n->GetType() != WildcardType || (n->flags & FlagHeld) != 0) continue;
    const int32_t index = static_cast<const WildcardENode*>(n)->index;
    if (index < 0 || index >= kBindingSlots || table.slots[index] == nullptr) return false;
  }
  return true;
}

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
  if (!ReplacementIsBound(replacement.Root(), table)) return 0;
  *node = (*node)->ReplaceWith(replacement.Root(), table.slots);
  table.result = *node;
  return 1;
}

}  // namespace quillon
