// Shared tree surgery of the rules; see surgery.h.
#include "rewrite/surgery.h"

#include "core/function_node.h"
#include "core/int_node.h"

namespace quillon {

bool IsNumeric(const ENode* node) {
  return (node->GetType() & (BoolType | IntType | RationalType | RealType)) != 0;
}

bool IsIntValue(const ENode* node, int32_t value) {
  return node->GetType() == IntType && static_cast<const IntENode*>(node)->value == value;
}

ENode* ReplaceNode(ENode* old, ENode* fresh) {
  old->SwapPlaces(fresh);
  old->DestroyTree();
  return fresh;
}

ENode* ReplaceByChild(ENode* node, ENode* child) {
  child->Unlink();
  return ReplaceNode(node, child);
}

ENode* WrapIn(FunctionDef* def, ENode* node) { return WrapWith(NewCall(def), node); }

ENode* WrapWith(ENode* wrapper, ENode* node) {
  node->SwapPlaces(wrapper);
  wrapper->AppendChild(node);
  return wrapper;
}

ENode* NewCall(FunctionDef* def) { return new FunctionENode(def); }

ENode* NewCall(FunctionDef* def, std::initializer_list<ENode*> children) {
  ENode* call = NewCall(def);
  for (ENode* child : children) call->AppendChild(child);
  return call;
}

ENode* MoveToEnd(ENode* parent, ENode* child) {
  child->Unlink();
  parent->AppendChild(child);
  return child;
}

}  // namespace quillon
