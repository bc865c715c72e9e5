// EqKeepRule; see eqkeep_rule.h. The decisions are made with an explicit stack of paused walks,
// so that long right sides and long chains of definitions stay off the call stack.
#include "compile/eqkeep_rule.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "compile/equation_list.h"
#include "core/error_node.h"
#include "core/tree_walk.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

constexpr const char* kInvalidArguments = "@eqkeep syntax invalid";

enum State : uint8_t { Unseen, Keep, Drop, Deciding };

bool IsSymbol(const ENode* node) { return node->GetType() == SymbolType; }

bool HasPlainSymbolLeftSide(const ENode* entry) {
  return IsEquation(entry) && IsSymbol(entry->firstChild) &&
         static_cast<const SymbolENode*>(entry->firstChild)->index2 == -1;
}

// Which equations of a list depend on the given symbols.
class Dependencies {
 public:
  Dependencies(const std::vector<ENode*>& equations, const std::vector<ENode*>& symbols) {
    for (const ENode* equation : equations) {
      leftSides_.Add(static_cast<const SymbolENode*>(equation->firstChild));
      rightSides_.push_back(equation->lastChild);
    }
    for (const ENode* symbol : symbols) given_.Add(static_cast<const SymbolENode*>(symbol));
    states_.assign(rightSides_.size(), Unseen);
  }

  bool Kept(int32_t i) {
    if (StateOf(i) == Unseen) {
      Open(i);
      while (!walks_.empty()) Step();
    }
    return StateOf(i) == Keep;
  }

 private:
  // A walk over an equation's right side in pre-order, paused at `at` while the equation that
  // the symbol before it refers to is decided.
  struct Walk {
    int32_t equation;
    const ENode* at;
  };
  static constexpr int32_t kYes = -2;
  static constexpr int32_t kNo = -1;

  State& StateOf(int32_t i) { return states_[static_cast<size_t>(i)]; }

  void Open(int32_t i) {
    StateOf(i) = Deciding;
    walks_.push_back({i, rightSides_[static_cast<size_t>(i)]});
  }

  // Goes on with the top walk until it opens another or has its answer.
  void Step() {
    Walk& walk = walks_.back();
    const ENode* root = rightSides_[static_cast<size_t>(walk.equation)];
    for (const ENode* n = walk.at; n != nullptr; n = NextInPreorder(n, root)) {
      const int32_t look = Look(n);
      if (look == kYes) return Finish(true);
      if (look == kNo) continue;
      walk.at = NextInPreorder(n, root);
      return Open(look);
    }
    Finish(false);
  }

  // kYes when node n settles its walk, kNo to go on, or the equation to decide first. An
  // equation being decided answers no on this path only.
  int32_t Look(const ENode* n) {
    if (!IsSymbol(n)) return kNo;
    const auto* symbol = static_cast<const SymbolENode*>(n);
    if (given_.FirstMatch(symbol) >= 0) return kYes;
    const int32_t i = leftSides_.FirstMatch(symbol);
    if (i < 0) return kNo;
    switch (StateOf(i)) {
      case Keep: return kYes;
      case Unseen: return i;
      default: return kNo;
    }
  }

  // Every paused walk waits on the one above it, so a yes answers them all.
  void Finish(bool answer) {
    do {
      StateOf(walks_.back().equation) = answer ? Keep : Drop;
      walks_.pop_back();
    } while (answer && !walks_.empty());
  }

  LeftSides leftSides_;
  LeftSides given_;
  std::vector<const ENode*> rightSides_;
  std::vector<State> states_;
  std::vector<Walk> walks_;
};

}  // namespace

uint32_t EqKeepRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2) return 0;
  ENode* list = call->firstChild;
  const std::vector<ENode*> equations = ListItems(list);
  const std::vector<ENode*> symbols = ListItems(call->lastChild);
  if (!std::all_of(equations.begin(), equations.end(), HasPlainSymbolLeftSide) ||
      !std::all_of(symbols.begin(), symbols.end(), IsSymbol)) {
    *node = ReplaceNode(call, new ErrorENode(SharedText(kInvalidArguments)));
    return 1;
  }
  // All decisions come first: a dropped equation's sides are read by later ones.
  Dependencies dependencies(equations, symbols);
  const auto count = static_cast<int32_t>(equations.size());
  std::vector<bool> kept;
  for (int32_t i = 0; i < count; ++i) kept.push_back(dependencies.Kept(i));
  // Positions are those of the first argument's own children (see the class comment); what is
  // dropped is freed.
  int32_t position = 0;
  for (ENode* c = list->firstChild; c != nullptr && position < count; ++position) {
    ENode* following = c->next;
    if (!kept[static_cast<size_t>(position)]) c->DestroyTree();
    c = following;
  }
  list->flags &= ~FlagSettled;
  *node = ReplaceByChild(call, list);
  return 1;
}

}  // namespace quillon
