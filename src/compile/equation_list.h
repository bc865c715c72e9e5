// Equation lists as the replacement and dependency rules read them: the entries of a list, the
// symbol match of a symbol against a left side, the first left side a symbol matches, and the
// clearing of FlagSettled above what a rule changed.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/enode.h"
#include "core/symbol_node.h"

namespace quillon {

// The items of a list argument: the children of an @list, or the node itself (borrowed).
std::vector<ENode*> ListItems(ENode* argument);

// An @eq with exactly two children.
bool IsEquation(const ENode* node);

// Whether symbol s matches the left side l: the same definition, and equal indices unless the
// definition is of a lagged class, whose indices never matter.
bool SymbolMatches(const SymbolENode* s, const SymbolENode* l);

// The first of a set of left-side symbols that a symbol matches, in the order they were added.
// Symbols are grouped by definition, so a lookup costs only the left sides of that definition.
class LeftSides {
 public:
  void Add(const SymbolENode* leftSide);
  // Position (in the order of Add) of the first match, or -1.
  int32_t FirstMatch(const SymbolENode* s) const;
  int32_t Count() const { return static_cast<int32_t>(sides_.size()); }

 private:
  std::vector<const SymbolENode*> sides_;
  std::unordered_map<const SymbolDef*, std::vector<int32_t>> byDefinition_;
};

// Clears FlagSettled on a changed node's parent and its ancestors below the rule's own node, so
// that the driver rewrites the path again. Each node is cleared once however many changes lie
// below it, which keeps a long chain linear.
class ChangedPaths {
 public:
  explicit ChangedPaths(const ENode* ruleNode) : ruleNode_(ruleNode) {}
  void MarkChildChanged(ENode* parent);

 private:
  const ENode* ruleNode_;
  std::unordered_set<const ENode*> cleared_;
};

}  // namespace quillon
