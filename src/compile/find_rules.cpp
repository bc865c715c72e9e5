// FindRule and the matching of a subexpression against a search pattern; see find_rules.h. The
// match keeps its frames on the heap: a pattern, or a subtree bound to a wildcard and used as a
// pattern again, may be as deep as any chain.
#include "compile/find_rules.h"

#include <cstdint>
#include <map>
#include <vector>

#include "core/error_node.h"
#include "core/function_node.h"
#include "core/well_known.h"
#include "core/wildcard_node.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

constexpr const char* kFlagNotBoolean = "@find() third parameter must be Boolean";

// Wildcard index to the node of the searched tree it stands for (borrowed).
using Bindings = std::map<int32_t, const ENode*>;

enum class Entry { Fails, Holds, Pending };

// One match of a node n against a pattern p.
class PatternMatch {
 public:
  explicit PatternMatch(Bindings& bindings) : bindings_(bindings) {}

  bool Run(const ENode* n, const ENode* p) {
    Entry entry = Enter(n, p);
    while (!frames_.empty()) {
      if (entry != Entry::Pending) {
        entry = Resume(entry == Entry::Holds);
        continue;
      }
      Frame& top = frames_.back();
      entry = Enter(top.nodeChild, top.patternChild);
    }
    return entry == Entry::Holds;
  }

 private:
  // The pair of children under test; an equation tries its sides straight, then crosswise.
  struct Frame {
    const ENode* node;
    const ENode* pattern;
    const ENode* nodeChild;
    const ENode* patternChild;
    int32_t equationTry;  // -1 for other functions; else 0 to 3 as in Resume
  };

  // The pattern node that n is compared with: p, or what a wildcard is bound to. Null when p
  // is a free wildcard, which is bound to n here. A chain of bindings that comes back on itself
  // (a searched wildcard bound to its own index) ends at the wildcard, compared as a node.
  const ENode* Resolve(const ENode* n, const ENode* p) {
    for (size_t steps = 0; p->GetType() == WildcardType && steps <= bindings_.size(); ++steps) {
      const auto [slot, isNew] = bindings_.try_emplace(static_cast<const WildcardENode*>(p)->index, n);
      if (isNew) return nullptr;
      p = slot->second;
    }
    return p;
  }

  Entry Enter(const ENode* n, const ENode* p) {
    p = Resolve(n, p);
    if (p == nullptr) return Entry::Holds;
    if (n->GetType() != p->GetType() || !n->IsEqual(*p) || n->childCount != p->childCount) return Entry::Fails;
    if (n->childCount == 0) return Entry::Holds;
    const bool equation = IsCallOf(n, fnEq) && n->childCount == 2;
    frames_.push_back({n, p, n->firstChild, p->firstChild, equation ? 0 : -1});
    return Entry::Pending;
  }

  // Takes the outcome of the pair under test in the top frame: sets up the next pair and
  // returns Pending, or ends the frame and returns its outcome.
  Entry Resume(bool holds) {
    Frame& f = frames_.back();
    if (f.equationTry < 0) {
      if (holds && f.nodeChild->next != nullptr) {
        f.nodeChild = f.nodeChild->next;
        f.patternChild = f.patternChild->next;
        return Entry::Pending;
      }
      return Finish(holds);
    }
    // Tries: 0 left with left, 1 right with right, 2 left with right, 3 right with left.
    switch (f.equationTry) {
      case 0: f.equationTry = holds ? 1 : 2; break;
      case 1: if (holds) return Finish(true); f.equationTry = 2; break;
      case 2: if (!holds) return Finish(false); f.equationTry = 3; break;
      default: return Finish(holds);
    }
    const bool crosswise = f.equationTry >= 2;
    f.nodeChild = f.equationTry % 2 == 0 ? f.node->firstChild : f.node->lastChild;
    f.patternChild = (f.equationTry % 2 == 0) != crosswise ? f.pattern->firstChild : f.pattern->lastChild;
    return Entry::Pending;
  }

  Entry Finish(bool holds) {
    frames_.pop_back();
    return holds ? Entry::Holds : Entry::Fails;
  }

  Bindings& bindings_;
  std::vector<Frame> frames_;
};

// What a match of n reports: n itself, or the nodes its wildcards bound.
ENode* Report(const ENode* n, const Bindings& bindings, bool wantBindings) {
  if (!wantBindings || bindings.empty()) return n->Clone();
  if (bindings.size() == 1) return bindings.begin()->second->Clone();
  ENode* bound = NewCall(fnList);
  for (const auto& [index, node] : bindings) bound->AppendChild(node->Clone());
  return bound;
}

const ENode* FirstLeaf(const ENode* n) {
  while (n->firstChild != nullptr) n = n->firstChild;
  return n;
}

// The reports of every match in the tree of expr, children before parents.
ENode* Search(const ENode* expr, const ENode* pattern, bool wantBindings) {
  ENode* found = NewCall(fnList);
  for (const ENode* n = FirstLeaf(expr);; n = n->next != nullptr ? FirstLeaf(n->next) : n->parent) {
    Bindings bindings;
    if (PatternMatch(bindings).Run(n, pattern)) found->AppendChild(Report(n, bindings, wantBindings));
    if (n == expr) return found;
  }
}

}  // namespace

uint32_t FindRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 3) return 0;
  const ENode* flag = call->lastChild;
  if (flag->GetType() != BoolType) {
    *node = ReplaceNode(call, new ErrorENode(SharedText(kFlagNotBoolean)));
    return 1;
  }
  *node = ReplaceNode(call, Search(call->firstChild, call->firstChild->next, flag->GetValue() != 0.0));
  return 1;
}

}  // namespace quillon
