// IntENode: a 32-bit integer literal.
#pragma once

#include "core/enode.h"

namespace quillon {

class IntENode final : public ENode {
 public:
  explicit IntENode(int32_t value, uint32_t initialFlags = FlagSettled) : ENode(initialFlags), value(value) {}

  uint32_t GetType() const override { return IntType; }
  bool IsNegative() const override { return value < 0; }
  // -(-2147483648) stays -2147483648, as 32-bit negation wraps.
  void Negate() override { value = static_cast<int32_t>(0u - static_cast<uint32_t>(value)); }
  Rational GetRational() const override { return {value, 1}; }
  double GetValue() const override { return value; }
  // Literals are leaves of every numeric walk: one call, not two.
  double GetValueAt(const double*, const double*) const override { return value; }
  uint32_t Hash() const override;
  ENode* CloneNode() const override { return new IntENode(value); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override { return value == static_cast<const IntENode&>(other).value; }
  int Compare(const ENode& other) const override;

  int32_t value;
};

}  // namespace quillon
