// ENode: the abstract base of every expression node, its links and flags, its twelve virtual
// operations and the tree operations. The node kinds live in their own files (*_node.h).
// Walks over whole trees are iterative (tree_walk.h), so any depth is safe here.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

#include "core/exact_numbers.h"
#include "shared/shared_text.h"

namespace quillon {

// Class tags: one bit per class, so that a set of classes is a mask. Numeric order of the tags
// is the order of classes in sorted trees.
enum ENodeType : uint32_t {
  VoidType = 1,
  BoolType = 2,
  IntType = 4,
  RationalType = 8,
  RealType = 16,
  StringType = 32,
  DateType = 64,
  SymbolType = 128,
  FunctionType = 256,
  WildcardType = 4096,
  ErrorType = 8192,
};

enum NodeFlag : uint32_t {
  FlagSettled = 1,  // the driver has finished this node
  FlagHeld = 2,     // kept as it stands while a pattern is prepared; Clone does not substitute it
};
// Bits 16 and up of flags are rewrite mode bits of the node itself.
inline constexpr uint32_t kNodeModeBits = 0xFFFF0000u;

// The missing value: a negative quiet not-a-number with the bits 0xFFF8000000000000.
double NA();
bool IsNA(double value);

class ENode;
// The trees that the wildcards #0, #1, ... of a copied tree stand for; an empty slot is null.
using Bindings = std::span<ENode* const>;

class ENode {
 public:
  ENode(const ENode&) = delete;
  ENode& operator=(const ENode&) = delete;

  // --- life: a node is freed by DestroyTree (or by the release of its last handle).
  // Unlinks itself and counts down; children are not touched.
  virtual ~ENode();

  // --- class and value
  virtual uint32_t GetType() const = 0;
  virtual bool IsNegative() const { return false; }
  virtual void Negate() {}
  virtual Rational GetRational() const { return {0, 0}; }
  // Value of the node when wildcards of kind T and S read tables t and s; GetValue elsewhere.
  virtual double GetValueAt(const double* t, const double* s) const;
  virtual double GetValue() const { return NA(); }

  // --- identity
  // Hash of this node alone; TreeHash (tree_walk.h) folds in the children.
  virtual uint32_t Hash() const = 0;
  // A new free node of the same class with the same class fields: no links, no children,
  // useCount 0. Returns a new node the caller must link or hold.
  virtual ENode* CloneNode() const = 0;
  // Text of this node alone, without its children.
  virtual SharedText Print() const = 0;
  // Called only with a node of the same class.
  virtual bool IsEqual(const ENode& other) const = 0;
  // Called only with a node of the same class: -1, 0 or 1.
  virtual int Compare(const ENode& other) const = 0;

  // --- tree operations (borrow this; nodes passed in are free unless said otherwise)
  // Deep copy. A wildcard of this tree that is not held and has a tree in bindings stands for
  // that tree. A free bound tree held at most once (by the caller's bindings) is linked in
  // itself at its first use; later uses, and a tree shared with a handle, copy it. Nodes inside
  // a bound tree are never substituted, whatever wildcards they hold.
  ENode* Clone(Bindings bindings = {}) const;
  // Deep copy with series symbols shifted by k, except inside aggregate functions.
  ENode* CloneShifted(int32_t k) const;
  // The same shift, in place.
  void ShiftSymbols(int32_t k);
  // Links a free node as last or first child.
  void AppendChild(ENode* child);
  void PrependChild(ENode* child);
  // Takes this node out of its parent's list; its own children stay.
  void Unlink();
  // Frees the subtree, except nodes that handles still use: those are unlinked and live on.
  void DestroyTree();
  // Puts the children in this node's place and frees it. Returns the first former child, or
  // the former next sibling when there were no children.
  ENode* Splice();
  // The two nodes exchange their places (parents and siblings); each keeps its children.
  void SwapPlaces(ENode* other);
  // Frees this subtree and puts a Clone of other (with bindings) in its place; returns the clone.
  ENode* ReplaceWith(const ENode* other, Bindings bindings);
  // This is a list L under a function node P: L takes P's place, with P applied to each item.
  void DistributeOverList();
  // Regroups the first k children under one new node of the same function, the rest under
  // another; with keepSingle a group of one stays as it is.
  void SplitChildren(int32_t k, bool keepSingle);
  void SetFlagsByType(uint32_t mask, uint32_t bits);
  void ClearFlagsByType(uint32_t mask, uint32_t bits);

  // --- links; written only by the tree operations above
  ENode* parent = nullptr;
  ENode* prev = nullptr;
  ENode* next = nullptr;
  ENode* firstChild = nullptr;
  ENode* lastChild = nullptr;
  int32_t childCount = 0;
  int32_t useCount = 0;  // handles and temporary holders; the parent's link is not counted
  uint32_t flags = 0;

 protected:
  explicit ENode(uint32_t initialFlags);

 private:
  // Links a free node into this node's list just before `at` (at the end when at is null).
  void LinkBefore(ENode* child, ENode* at);
  // Moves count children starting at `from` under a new node of this node's function.
  void GroupRun(ENode* from, int32_t count, bool keepSingle);
};

// Nodes alive in the process: raised by every construction, lowered by every destruction.
// A relaxed atomic, so threads may build trees at once: a diagnostic, never a decision.
int64_t LiveNodeCount();

// The children of a node, for range-for. Reads `next` when it moves on, so the body must not
// unlink the child it is looking at.
class ChildRange {
 public:
  class Iterator {
   public:
    explicit Iterator(ENode* n) : node_(n) {}
    ENode* operator*() const { return node_; }
    Iterator& operator++() {
      node_ = node_->next;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return node_ != other.node_; }

   private:
    ENode* node_;
  };
  explicit ChildRange(const ENode* n) : first_(n->firstChild) {}
  Iterator begin() const { return Iterator(first_); }
  Iterator end() const { return Iterator(nullptr); }

 private:
  ENode* first_;
};
inline ChildRange Children(const ENode* node) { return ChildRange(node); }

// The i-th child (0-based), or null.
ENode* ChildAt(const ENode* node, int32_t i);

}  // namespace quillon
