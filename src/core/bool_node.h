// BoolENode: the truth values TRUE and FALSE; a number for the host, 1.0 or 0.0.
#pragma once

#include "core/enode.h"

namespace quillon {

class BoolENode final : public ENode {
 public:
  explicit BoolENode(bool value, uint32_t initialFlags = FlagSettled) : ENode(initialFlags), value(value ? 1 : 0) {}

  uint32_t GetType() const override { return BoolType; }
  double GetValue() const override { return value != 0 ? 1.0 : 0.0; }
  uint32_t Hash() const override { return value == 1 ? 0xAAAAAAAAu : 0x55555555u; }
  ENode* CloneNode() const override { return new BoolENode(value != 0); }
  SharedText Print() const override { return SharedText(value != 0 ? "TRUE" : "FALSE"); }
  bool IsEqual(const ENode& other) const override { return value == static_cast<const BoolENode&>(other).value; }
  int Compare(const ENode& other) const override;

  int32_t value;  // 0 or 1
};

}  // namespace quillon
