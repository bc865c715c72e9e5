// ExprHandle: one counted use of a root node; the type behind every mathexpr pointer and the way
// internal code holds a tree across calls. A handle is never null: the empty expression is a
// handle on a VoidENode.
#pragma once

#include <cstdint>

#include "core/date_value.h"
#include "core/enode.h"
#include "core/function_def.h"
#include "core/symbol_def.h"

namespace quillon {

class ExprHandle {
 public:
  // A VoidENode, flags 0.
  ExprHandle();
  // Shares node (borrowed): raises its useCount.
  explicit ExprHandle(ENode* node);
  ExprHandle(const ExprHandle& other) : ExprHandle(other.node_) {}
  ExprHandle& operator=(const ExprHandle& other);
  // A moved-from handle holds nothing and may only be destroyed or assigned to.
  ExprHandle(ExprHandle&& other) noexcept : node_(other.node_) { other.node_ = nullptr; }
  ExprHandle& operator=(ExprHandle&& other) noexcept;
  ~ExprHandle() {
    if (node_ != nullptr) Release(node_);
  }

  // Settled literal nodes.
  explicit ExprHandle(bool value);
  explicit ExprHandle(int32_t value);
  explicit ExprHandle(double value);
  explicit ExprHandle(const DateValue& date);
  explicit ExprHandle(const SharedText& text);
  // A symbol node, flags 0, hash computed.
  ExprHandle(SymbolDef* def, int32_t index1, int32_t index2);
  // A function node over the handles' trees, in order: a tree that is inside another tree is
  // copied, a free one is taken. The same handle may be given twice.
  explicit ExprHandle(FunctionDef* def);
  ExprHandle(FunctionDef* def, const ExprHandle& a);
  ExprHandle(FunctionDef* def, const ExprHandle& a, const ExprHandle& b);
  ExprHandle(FunctionDef* def, const ExprHandle& a, const ExprHandle& b, const ExprHandle& c);
  ExprHandle(FunctionDef* def, const ExprHandle& a, const ExprHandle& b, const ExprHandle& c,
             const ExprHandle& d);

  ENode* Root() const { return node_; }
  // Points the handle at another node (borrowed), letting go of the old one.
  void Reset(ENode* node);

  // For the driver: the handle's use of its root is given up while rules may replace or free the
  // root, and taken again on whatever root stands at the end.
  ENode* LendRoot() {
    --node_->useCount;
    return node_;
  }
  void ReturnRoot(ENode* root) {
    node_ = root;
    ++node_->useCount;
  }

  // A handle on a tree the caller may change: the tree itself when that is safe, else a Clone.
  // TakeOrClone: the root is free. TakeOrCloneSingle: free and used by at most this handle.
  // TakeOrCloneDeep: free, and no node below the root is held by a handle; other handles on the
  // root itself share the tree (they see what rules do to it, unless the root is replaced).
  ExprHandle TakeOrClone() const;
  ExprHandle TakeOrCloneSingle() const;
  ExprHandle TakeOrCloneDeep() const;

  // Lowers the use of node and frees its tree when it is free and no longer used.
  static void Release(ENode* node);

 private:
  void AppendArgument(const ExprHandle& argument);

  ENode* node_;
};

}  // namespace quillon
