// The list rules declared in list_set_rules.h. Elements move by relinking, never by copying,
// and every walk is a loop over one list.
#include "analysis/list_set_rules.h"

#include "analysis/list_steps.h"
#include "core/function_node.h"
#include "core/node_order.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// Moves `from` and the siblings after it, in order, to the end of list.
void MoveArguments(ENode* from, ENode* list) {
  for (ENode* argument = from; argument != nullptr;) {
    ENode* following = argument->next;
    MoveToEnd(list, argument);
    argument = following;
  }
}

// Frees the elements after first that NodeOrder finds equal to it; returns the first element
// that differs, or null, and the length of the run in length.
ENode* DropRepeatsOf(ENode* first, int32_t& length) {
  length = 1;
  ENode* c = first->next;
  while (c != nullptr && NodeOrder(first, c) == 0) {
    ENode* following = c->next;
    c->DestroyTree();
    c = following;
    ++length;
  }
  return c;
}

// In a sorted list, keeps one of each run of equal elements whose length is at least k.
void KeepRunsOfLength(ENode* list, int32_t k) {
  for (ENode* first = list->firstChild; first != nullptr;) {
    int32_t length = 0;
    ENode* following = DropRepeatsOf(first, length);
    if (length < k) first->DestroyTree();
    first = following;
  }
}

// Walks the sorted list a and the sorted list r together: keeps one of each run of equal
// elements of a that r does not hold, and frees the rest. r may hold repeats.
void RemoveSortedFrom(ENode* a, const ENode* r) {
  const ENode* remove = r->firstChild;
  for (ENode* element = a->firstChild; element != nullptr;) {
    while (remove != nullptr && NodeOrder(remove, element) < 0) remove = remove->next;
    const bool removed = remove != nullptr && NodeOrder(remove, element) == 0;
    int32_t length = 0;
    ENode* following = DropRepeatsOf(element, length);
    if (removed) element->DestroyTree();
    element = following;
  }
}

// All arguments of call, in order, in a new list flattened once.
HeldList JoinArguments(ENode* call) {
  HeldList joined;
  MoveArguments(call->firstChild, joined.Node());
  FlattenOnce(joined.Node());
  return joined;
}

// The first argument of complement as a sorted list of its own: the list itself, a new list
// that holds the argument, or an empty list when there is no argument.
HeldList SourceOf(ENode* call) {
  ENode* first = call->firstChild;
  if (first != nullptr && IsCallOf(first, fnList)) {
    first->Unlink();
    HeldList source(first);
    SortElements(source.Node());
    return source;
  }
  HeldList source;
  if (first != nullptr) MoveToEnd(source.Node(), first);
  return source;
}

}  // namespace

uint32_t SortRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 1) return 0;
  ENode* argument = call->firstChild;
  if (IsCallOf(argument, fnList)) SortElements(argument);
  *node = ReplaceByChild(call, argument);
  return 1;
}

uint32_t JoinRule::Apply(ENode** node) {
  HeldList joined = JoinArguments(*node);
  *node = joined.Replace(*node);
  return 1;
}

uint32_t UnionRule::Apply(ENode** node) {
  HeldList joined = JoinArguments(*node);
  MakeSortedSet(joined.Node());
  *node = joined.Replace(*node);
  return 1;
}

uint32_t IntersectRule::Apply(ENode** node) {
  ENode* call = *node;
  const int32_t k = call->childCount;
  HeldList all;
  for (ENode* argument = call->firstChild; argument != nullptr; argument = call->firstChild) {
    MakeSortedSet(argument);
    MoveToEnd(all.Node(), argument);
  }
  FlattenOnce(all.Node());
  SortElements(all.Node());
  KeepRunsOfLength(all.Node(), k);
  *node = all.Replace(call);
  return 1;
}

uint32_t ComplementRule::Apply(ENode** node) {
  ENode* call = *node;
  HeldList others;
  if (call->childCount > 1) {
    MoveArguments(call->firstChild->next, others.Node());
    FlattenOnce(others.Node());
    SortElements(others.Node());
  }
  HeldList source = SourceOf(call);
  RemoveSortedFrom(source.Node(), others.Node());
  *node = source.Replace(call);
  return 1;
}

}  // namespace quillon
