// SubexprRule: @subexpr prepares a formula for numeric evaluation. Repeated function subtrees
// become numbered temporaries computed once, symbols become numbered input slots.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/enode.h"
#include "core/rule.h"

namespace quillon {

// @subexpr(x) --> @sublist(@list(t0, t1, ...), x')   when x holds a function subtree twice
// @subexpr(x) --> x'                                  otherwise
// x' is x with each repeated subtree replaced by #Ti, where ti is the subtree over earlier
// temporaries, and each symbol by #Sj, j its rank among the symbols by kind, name and indices.
// Temporaries are numbered by height, then by node order within a height; a temporary used
// only once (inside another) is folded back. Wildcards of kind T already in x are not renumbered
// apart from the new ones, so a second @subexpr over a prepared tree clashes with the first.
class SubexprRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;

 private:
  // One application's working state; the rule object itself keeps nothing.
  struct Work {
    explicit Work(ENode* call) : call(call), x(call->firstChild) {}
    ENode* call;                // the @subexpr node
    ENode* x;                   // its argument
    std::vector<size_t> ends;   // bucket counts by height, then stretch ends
    std::vector<ENode*> nodes;  // function nodes in height order
    ENode* list = nullptr;      // @list of the temporaries
    int32_t temporaries = 0;
    std::vector<ENode*> uses;   // one use of each temporary, or call for more than one
  };

  static void CountHeights(Work& work);
  static void PlaceNodes(Work& work);
  static void MakeTemporaries(Work& work);
  static void ShareRun(Work& work, size_t from, size_t to);
  static void CountUses(Work& work, ENode* root);
  static void FoldSingleUses(Work& work);
  static void Renumber(Work& work, const std::vector<bool>& folded);
  static ENode* BuildResult(Work& work);
  static ENode* NumberSymbols(ENode* root);
};

}  // namespace quillon
