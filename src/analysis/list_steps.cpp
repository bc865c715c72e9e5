// The shared list steps declared in list_steps.h.
#include "analysis/list_steps.h"

#include "core/node_order.h"
#include "core/well_known.h"
#include "rewrite/driver.h"
#include "rewrite/surgery.h"

namespace quillon {

HeldList::HeldList() : list_(NewCall(fnList)) {}

ENode* HeldList::Replace(ENode* old) { return ReplaceNode(old, std::exchange(list_, nullptr)); }

void SortElements(ENode* node) {
  if (node->childCount > 1) SortChildren(node);
}

void FlattenOnce(ENode* list) {
  for (ENode* c = list->firstChild; c != nullptr;) {
    ENode* following = c->next;
    // Compare finds a node equal to the list only for a list without derivative notation.
    if (c->GetType() == FunctionType && c->Compare(*list) == 0) c->Splice();
    c = following;
  }
}

void RemoveDuplicates(ENode* list) {
  ENode* kept = list->firstChild;
  if (kept == nullptr) return;
  for (ENode* c = kept->next; c != nullptr;) {
    ENode* following = c->next;
    if (NodeOrder(kept, c) == 0)
      c->DestroyTree();
    else
      kept = c;
    c = following;
  }
}

void MakeSortedSet(ENode* list) {
  SortElements(list);
  RemoveDuplicates(list);
}

}  // namespace quillon
