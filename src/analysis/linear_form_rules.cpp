// The linear form rules declared in linear_form_rules.h, over two shared steps: the expansion of
// the products that hold a dependent sum, and the split of the terms by variable. Both only
// loop over the top sum and its products, so a long chain costs no stack.
#include "analysis/linear_form_rules.h"

#include <unordered_map>
#include <vector>

#include "analysis/list_steps.h"
#include "calculus/depends_on.h"
#include "core/function_node.h"
#include "core/int_node.h"
#include "core/node_order.h"
#include "core/tree_walk.h"
#include "core/void_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// ---- ExpandInVariables

// Distributes the product over its dependent sum factor and returns the product that now holds
// what was the sum's first term. top is the expression; it becomes the sum when the product was
// the whole of it, and otherwise takes the sum's terms in the sum's place.
ENode* DistributeFactor(ENode* sum, ENode*& top) {
  ENode* first = sum->firstChild;
  const bool productWasTop = sum->parent == top;
  sum->DistributeOverList();
  if (productWasTop) {
    top = sum;
  } else {
    sum->Splice();
    top->flags &= ~FlagSettled;
  }
  return first->parent;
}

// Goes through the factors of one product term, from the first: nested products come undone in
// place, and each dependent sum is multiplied out, after which the scan starts over in the
// product that holds the sum's first term. Returns the term the scan ended in.
ENode* ExpandTerm(ENode* term, const ENode* v, ENode*& top) {
  for (ENode* factor = term->firstChild; factor != nullptr;) {
    if (IsCallOf(factor, fnTimes)) {
      factor = factor->Splice();
    } else if (IsCallOf(factor, fnPlus) && DependsOn(factor, v)) {
      term = DistributeFactor(factor, top);
      factor = term->firstChild;
    } else {
      factor = factor->next;
    }
  }
  return term;
}

// Multiplies out, on the top level of e only, every sum factor that depends on v. The copies of
// a product join the top sum in order and the scan goes through them, so a product of several
// dependent sums comes out fully expanded. Returns what stands in e's place.
ENode* ExpandInVariables(ENode* e, const ENode* v) {
  if (!IsCallOf(e, fnPlus) && !IsCallOf(e, fnTimes)) return e;
  ENode* top = e;
  for (ENode* term = IsCallOf(e, fnPlus) ? e->firstChild : e; term != nullptr;) {
    if (IsCallOf(term, fnTimes)) term = ExpandTerm(term, v, top);
    term = IsCallOf(top, fnPlus) ? term->next : nullptr;
  }
  return top;
}

// ---- SplitByVariables

// The terms of each variable, with the variable taken out, as children of a held list: a void
// child while a variable has no term, and then a sum. Whatever the rule does not move into its
// result goes with the holder.
class VariableTerms {
 public:
  explicit VariableTerms(const ENode* v) {
    if (IsCallOf(v, fnList)) {
      for (const ENode* variable : Children(v)) Add(variable);
    } else {
      Add(v);
    }
  }

  int32_t Count() const { return static_cast<int32_t>(variables_.size()); }
  const ENode* Variable(int32_t i) const { return variables_[i]; }
  // The sum of variable i, or null when it has no term.
  ENode* Entry(int32_t i) const { return entries_[i]->GetType() == VoidType ? nullptr : entries_[i]; }
  // The sum of variable i, made at its first term.
  ENode* OpenEntry(int32_t i) {
    if (Entry(i) == nullptr) entries_[i] = ReplaceNode(entries_[i], NewCall(fnPlus));
    return entries_[i];
  }
  // The holder becomes the coefficient list in call's place: the remainder (unlinked from
  // wherever it stands and unsettled) first, then each entry, with 0 for a variable without
  // terms. Returns the list.
  ENode* ReplaceAsList(ENode* call, ENode* remainder) {
    for (ENode*& entry : entries_)
      if (entry->GetType() == VoidType) entry = ReplaceNode(entry, new IntENode(0));
    remainder->Unlink();
    remainder->flags &= ~FlagSettled;
    holder_.Node()->PrependChild(remainder);
    return holder_.Replace(call);
  }
  // Index of the first variable equal to factor, or -1. Equal trees have equal hashes, so only
  // the variables of the factor's hash are compared: a long list of variables costs no more
  // than a short one.
  int32_t Find(const ENode* factor) const {
    int32_t first = -1;
    const auto [from, to] = byHash_.equal_range(TreeHash(factor));
    for (auto candidate = from; candidate != to; ++candidate) {
      const int32_t i = candidate->second;
      if ((first < 0 || i < first) && NodeEqual(factor, variables_[i])) first = i;
    }
    return first;
  }

 private:
  void Add(const ENode* variable) {
    byHash_.emplace(TreeHash(variable), Count());
    variables_.push_back(variable);
    ENode* placeholder = new VoidENode();
    holder_.Node()->AppendChild(placeholder);
    entries_.push_back(placeholder);
  }

  HeldList holder_;
  std::vector<const ENode*> variables_;  // borrowed from v
  std::vector<ENode*> entries_;          // children of the holder
  std::unordered_multimap<uint32_t, int32_t> byHash_;  // tree hash of each variable -> its index
};

// The first factor of t that is a variable, going by the factors and then by the variables;
// null when there is none. index receives the variable's index.
ENode* FirstVariableFactor(ENode* t, const VariableTerms& terms, int32_t& index) {
  const bool product = IsCallOf(t, fnTimes);
  for (ENode* factor = product ? t->firstChild : t; factor != nullptr; factor = product ? factor->next : nullptr) {
    index = terms.Find(factor);
    if (index >= 0) return factor;
  }
  return nullptr;
}

// Moves term t of e into the entry of variable i, without the factor that is the variable.
// When t is e itself a literal 0 takes its place and becomes the new e.
void MoveTerm(ENode* t, ENode* factor, int32_t i, VariableTerms& terms, ENode*& e) {
  ENode* entry = terms.OpenEntry(i);
  if (t == e) {
    e = new IntENode(0);
    t->SwapPlaces(e);
  } else {
    t->Unlink();
  }
  entry->AppendChild(t);
  if (factor == t) {
    ReplaceNode(t, new IntENode(1));
  } else {
    factor->DestroyTree();
    t->flags &= ~FlagSettled;
  }
}

// Takes out of e every term that has a variable among its factors. Returns what stands in e's
// place: e itself, perhaps an emptied sum, or the 0 that took the place of a lone term.
ENode* SplitByVariables(ENode* e, VariableTerms& terms) {
  const bool sum = IsCallOf(e, fnPlus);
  for (ENode* t = sum ? e->firstChild : e; t != nullptr;) {
    ENode* following = sum ? t->next : nullptr;
    int32_t i = -1;
    if (ENode* factor = FirstVariableFactor(t, terms, i)) MoveTerm(t, factor, i, terms, e);
    t = following;
  }
  return e;
}

// The first argument expanded and split; returns what is left of it, still in its place.
ENode* ExpandAndSplit(ENode* call, VariableTerms& terms) {
  const ENode* v = call->lastChild;
  return SplitByVariables(ExpandInVariables(call->firstChild, v), terms);
}

}  // namespace

uint32_t LinExpandRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2) return 0;
  ENode* e = ExpandInVariables(call->firstChild, call->lastChild);
  *node = ReplaceByChild(call, e);
  return 1;
}

uint32_t LinCoefsRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2) return 0;
  VariableTerms terms(call->lastChild);
  ENode* remainder = ExpandAndSplit(call, terms);
  *node = terms.ReplaceAsList(call, remainder);
  return 1;
}

uint32_t LinCollectRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 2) return 0;
  VariableTerms terms(call->lastChild);
  ENode* e = ExpandAndSplit(call, terms);
  for (int32_t i = 0; i < terms.Count(); ++i) {
    ENode* entry = terms.Entry(i);
    if (entry == nullptr) continue;
    ENode* product = WrapIn(fnTimes, entry);
    product->AppendChild(terms.Variable(i)->Clone());
    MoveToEnd(e, product);
  }
  e->flags &= ~FlagSettled;
  *node = ReplaceByChild(call, e);
  return 1;
}

}  // namespace quillon
