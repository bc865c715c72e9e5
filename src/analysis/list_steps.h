// The steps that the list operations and the symbol lists share: sorting a node's children by
// the order of sorted trees, flattening nested lists one level, and dropping repeats from a
// sorted list. Each is one pass or one sort, and none recurses.
#pragma once

#include <utility>

#include "core/enode.h"

namespace quillon {

// A list built beside the tree: it owns the list, with all it holds, until the list takes a
// place in the tree, so that a throw half-way leaves nothing behind.
class HeldList {
 public:
  // A new empty list.
  HeldList();
  // Takes a free list (or any free node that serves as one).
  explicit HeldList(ENode* list) : list_(list) {}
  HeldList(HeldList&& other) noexcept : list_(std::exchange(other.list_, nullptr)) {}
  HeldList& operator=(HeldList&&) = delete;
  ~HeldList() {
    if (list_ != nullptr) list_->DestroyTree();
  }

  ENode* Node() const { return list_; }
  // The list takes old's place, and old's tree is freed; the list is the tree's from now on.
  // Returns the list.
  ENode* Replace(ENode* old);

 private:
  ENode* list_;
};

// Orders the children of node by NodeOrder, stably; a node with fewer than two is left alone.
void SortElements(ENode* node);

// Splices each child of list that is itself a list, once: what comes up is not looked at again.
void FlattenOnce(ENode* list);

// In a sorted list, frees each child that NodeOrder finds equal to the last one kept.
void RemoveDuplicates(ENode* list);

// Sort, then remove duplicates: a sorted set of the children.
void MakeSortedSet(ENode* list);

}  // namespace quillon
