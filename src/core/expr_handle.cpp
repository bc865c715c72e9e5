// ExprHandle construction, assignment, release and the TakeOrClone family.
#include "core/expr_handle.h"

#include "core/bool_node.h"
#include "core/date_node.h"
#include "core/function_node.h"
#include "core/int_node.h"
#include "core/real_node.h"
#include "core/string_node.h"
#include "core/symbol_node.h"
#include "core/tree_walk.h"
#include "core/void_node.h"

#include <utility>

namespace quillon {

ExprHandle::ExprHandle() : ExprHandle(new VoidENode()) {}

ExprHandle::ExprHandle(ENode* node) : node_(node) { ++node_->useCount; }

ExprHandle& ExprHandle::operator=(const ExprHandle& other) {
  Reset(other.node_);
  return *this;
}

ExprHandle& ExprHandle::operator=(ExprHandle&& other) noexcept {
  std::swap(node_, other.node_);
  return *this;
}

ExprHandle::ExprHandle(bool value) : ExprHandle(new BoolENode(value)) {}
ExprHandle::ExprHandle(int32_t value) : ExprHandle(new IntENode(value)) {}
ExprHandle::ExprHandle(double value) : ExprHandle(new RealENode(value)) {}
ExprHandle::ExprHandle(const DateValue& date) : ExprHandle(new DateENode(date)) {}
ExprHandle::ExprHandle(const SharedText& text) : ExprHandle(new StringENode(text)) {}
ExprHandle::ExprHandle(SymbolDef* def, int32_t index1, int32_t index2)
    : ExprHandle(new SymbolENode(def, index1, index2)) {}
ExprHandle::ExprHandle(FunctionDef* def) : ExprHandle(new FunctionENode(def)) {}

ExprHandle::ExprHandle(FunctionDef* def, const ExprHandle& a) : ExprHandle(def) { AppendArgument(a); }

ExprHandle::ExprHandle(FunctionDef* def, const ExprHandle& a, const ExprHandle& b) : ExprHandle(def) {
  AppendArgument(a);
  AppendArgument(b);
}

ExprHandle::ExprHandle(FunctionDef* def, const ExprHandle& a, const ExprHandle& b, const ExprHandle& c)
    : ExprHandle(def) {
  AppendArgument(a);
  AppendArgument(b);
  AppendArgument(c);
}

ExprHandle::ExprHandle(FunctionDef* def, const ExprHandle& a, const ExprHandle& b, const ExprHandle& c,
                       const ExprHandle& d)
    : ExprHandle(def) {
  AppendArgument(a);
  AppendArgument(b);
  AppendArgument(c);
  AppendArgument(d);
}

// A tree already inside another tree (or inside this one, when a handle is given twice) is
// copied rather than stolen.
void ExprHandle::AppendArgument(const ExprHandle& argument) {
  ENode* child = argument.node_->parent != nullptr ? argument.node_->Clone() : argument.node_;
  ++child->useCount;
  node_->AppendChild(child);
  --child->useCount;
}

void ExprHandle::Reset(ENode* node) {
  ++node->useCount;
  Release(node_);
  node_ = node;
}

void ExprHandle::Release(ENode* node) {
  --node->useCount;
  if (node->parent == nullptr) node->DestroyTree();
}

ExprHandle ExprHandle::TakeOrClone() const {
  return node_->parent == nullptr ? *this : ExprHandle(node_->Clone());
}

ExprHandle ExprHandle::TakeOrCloneSingle() const {
  return node_->parent == nullptr && node_->useCount < 2 ? *this : ExprHandle(node_->Clone());
}

ExprHandle ExprHandle::TakeOrCloneDeep() const {
  bool shared = node_->parent != nullptr;
  for (ENode* n = node_->firstChild; n != nullptr && !shared; n = NextInPreorder(n, node_))
    shared = n->useCount > 0;
  return shared ? ExprHandle(node_->Clone()) : *this;
}

}  // namespace quillon
