// VoidENode: the empty expression, a leaf without value.
#pragma once

#include "core/enode.h"

namespace quillon {

class VoidENode final : public ENode {
 public:
  VoidENode() : ENode(0) {}

  uint32_t GetType() const override { return VoidType; }
  uint32_t Hash() const override { return 0; }
  ENode* CloneNode() const override { return new VoidENode(); }
  SharedText Print() const override { return SharedText("(void)"); }
  bool IsEqual(const ENode&) const override { return true; }
  int Compare(const ENode&) const override { return 0; }
};

}  // namespace quillon
