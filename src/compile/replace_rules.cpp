// ReplaceRule and ReplaceRuleEx; see replace_rules.h. Both walk the expression by its links with
// their own bookkeeping on the heap, so chains of any length and long chains of definitions are
// safe.
#include "compile/replace_rules.h"

#include <cstdint>
#include <vector>

#include "compile/equation_list.h"
#include "core/error_node.h"
#include "core/function_node.h"
#include "core/node_order.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

constexpr const char* kInvalidEquationList = "@replace() equation list syntax invalid";
constexpr const char* kCircularDefinitions = "@replace() equation list has circular dependencies";

// The substitution of a whole expression. An equation is "expanding" while the copy of its right
// side is being substituted; meeting its left side again then is a cycle. Copies under
// substitution are nested subtrees, so their equations close in the reverse order of opening.
class Substitution {
 public:
  Substitution(ENode* call, const std::vector<ENode*>& equations) : call_(call), changed_(call) {
    for (ENode* equation : equations) {
      leftSides_.Add(static_cast<const SymbolENode*>(equation->firstChild));
      rightSides_.push_back(equation->lastChild);
    }
    expanding_.assign(rightSides_.size(), false);
  }

  void Run() {
    for (ENode* n = call_->firstChild; n != nullptr; n = Advance(Visit(n))) {
    }
  }

 private:
  struct Expansion {
    const ENode* copy;
    int32_t equation;
  };

  // Replaces n when it is a symbol with a definition; returns what stands in its place.
  ENode* Visit(ENode* n) {
    if (n->GetType() != SymbolType) return n;
    const auto* symbol = static_cast<const SymbolENode*>(n);
    const int32_t i = leftSides_.FirstMatch(symbol);
    if (i < 0) return n;
    changed_.MarkChildChanged(n->parent);
    if (expanding_[static_cast<size_t>(i)]) return ReplaceNode(n, new ErrorENode(SharedText(kCircularDefinitions)));
    const ENode* right = rightSides_[static_cast<size_t>(i)];
    ENode* copy = ReplaceNode(n, right->CloneShifted(symbol->index1));
    if (right->GetType() != SymbolType) {
      expanding_[static_cast<size_t>(i)] = true;
      open_.push_back({copy, i});
    }
    return copy;
  }

  // The next node of the expression in pre-order, closing the expansions whose copies are done.
  ENode* Advance(ENode* n) {
    if (n->firstChild != nullptr) return n->firstChild;
    for (;;) {
      Close(n);
      if (n->parent == call_) return nullptr;
      if (n->next != nullptr) return n->next;
      n = n->parent;
    }
  }

  void Close(const ENode* finished) {
    while (!open_.empty() && open_.back().copy == finished) {
      expanding_[static_cast<size_t>(open_.back().equation)] = false;
      open_.pop_back();
    }
  }

  ENode* call_;
  LeftSides leftSides_;
  std::vector<const ENode*> rightSides_;
  std::vector<bool> expanding_;
  std::vector<Expansion> open_;
  ChangedPaths changed_;
};

bool HasSymbolLeftSide(const ENode* entry) { return IsEquation(entry) && entry->firstChild->GetType() == SymbolType; }

bool EqualInOrder(const ENode* a, const ENode* b) { return NodeOrder(a, b) == 0; }

// An equation as a left side matches an equation with the same two sides, in either order.
bool MatchesLeftSide(const ENode* n, const ENode* left) {
  if (!IsCallOf(left, fnEq)) return EqualInOrder(n, left);
  if (!IsEquation(left) || !IsEquation(n)) return IsCallOf(n, fnEq) && EqualInOrder(n, left);
  const ENode* a = n->firstChild;
  const ENode* b = n->lastChild;
  return (EqualInOrder(a, left->firstChild) && EqualInOrder(b, left->lastChild)) ||
         (EqualInOrder(a, left->lastChild) && EqualInOrder(b, left->firstChild));
}

const ENode* FirstRightSide(const ENode* n, const std::vector<const ENode*>& equations) {
  for (const ENode* equation : equations)
    if (MatchesLeftSide(n, equation->firstChild)) return equation->lastChild;
  return nullptr;
}

ENode* FirstLeaf(ENode* n) {
  while (n->firstChild != nullptr) n = n->firstChild;
  return n;
}

// Post-order over the first argument of call, children before their parent. Returns whether
// anything was replaced.
bool ReplaceSubexpressions(ENode* call, const std::vector<const ENode*>& equations) {
  ChangedPaths changed(call);
  bool replaced = false;
  for (ENode* n = FirstLeaf(call->firstChild);;) {
    if (const ENode* right = FirstRightSide(n, equations)) {
      changed.MarkChildChanged(n->parent);
      n = ReplaceNode(n, right->Clone());
      replaced = true;
    }
    if (n->parent == call) return replaced;
    n = n->next != nullptr ? FirstLeaf(n->next) : n->parent;
  }
}

}  // namespace

uint32_t ReplaceRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2) return 0;
  const std::vector<ENode*> equations = ListItems(call->lastChild);
  for (const ENode* entry : equations) {
    if (!HasSymbolLeftSide(entry)) {
      *node = ReplaceNode(call, new ErrorENode(SharedText(kInvalidEquationList)));
      return 1;
    }
  }
  Substitution(call, equations).Run();
  *node = ReplaceByChild(call, call->firstChild);
  return 1;
}

uint32_t ReplaceRuleEx::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2) return 0;
  // Entries that are not equations of two sides are skipped, and the equations after them still
  // count: a stray item in a host's list should not silently disable the rest of it.
  std::vector<const ENode*> equations;
  for (const ENode* entry : ListItems(call->lastChild))
    if (IsEquation(entry)) equations.push_back(entry);
  const bool replaced = ReplaceSubexpressions(call, equations);
  *node = ReplaceByChild(call, call->firstChild);
  return replaced ? 1 : 0;
}

}  // namespace quillon
