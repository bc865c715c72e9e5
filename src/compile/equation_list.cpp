// Equation lists, symbol matching and changed paths; see equation_list.h.
#include "compile/equation_list.h"

#include "core/function_node.h"
#include "core/well_known.h"

namespace quillon {

std::vector<ENode*> ListItems(ENode* argument) {
  if (!IsCallOf(argument, fnList)) return {argument};
  std::vector<ENode*> items;
  items.reserve(static_cast<size_t>(argument->childCount));
  for (ENode* item : Children(argument)) items.push_back(item);
  return items;
}

bool IsEquation(const ENode* node) { return IsCallOf(node, fnEq) && node->childCount == 2; }

bool SymbolMatches(const SymbolENode* s, const SymbolENode* l) {
  if (s->def != l->def) return false;
  return (l->def->bits & kLaggedClasses) != 0 || (s->index1 == l->index1 && s->index2 == l->index2);
}

void LeftSides::Add(const SymbolENode* leftSide) {
  byDefinition_[leftSide->def].push_back(Count());
  sides_.push_back(leftSide);
}

int32_t LeftSides::FirstMatch(const SymbolENode* s) const {
  const auto found = byDefinition_.find(s->def);
  if (found == byDefinition_.end()) return -1;
  for (const int32_t i : found->second)
    if (SymbolMatches(s, sides_[static_cast<size_t>(i)])) return i;
  return -1;
}

void ChangedPaths::MarkChildChanged(ENode* parent) {
  for (ENode* n = parent; n != ruleNode_ && cleared_.insert(n).second; n = n->parent) n->flags &= ~FlagSettled;
}

}  // namespace quillon
