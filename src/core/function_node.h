// FunctionENode: every interior node. Operators, calls, lists and symbolic operations are all
// function nodes over a catalogued FunctionDef.
#pragma once

#include "core/enode.h"
#include "core/function_def.h"

namespace quillon {

class FunctionENode final : public ENode {
 public:
  explicit FunctionENode(FunctionDef* def, uint32_t derivative = 0, uint32_t initialFlags = 0)
      : ENode(initialFlags), def(def), derivative(derivative) {}

  uint32_t GetType() const override { return FunctionType; }
  uint32_t Hash() const override;
  ENode* CloneNode() const override { return new FunctionENode(def, derivative, flags); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;

  FunctionDef* def;     // never an alias
  uint32_t derivative;  // f[1,0] notation, four bits per argument, argument 1 lowest
};

// The function node's definition, or null when node is not a function node.
inline FunctionDef* DefOf(const ENode* node) {
  return node->GetType() == FunctionType ? static_cast<const FunctionENode*>(node)->def : nullptr;
}
inline bool IsCallOf(const ENode* node, const FunctionDef* def) {
  const FunctionDef* own = DefOf(node);
  return own != nullptr && own == def;
}

}  // namespace quillon
