// RealENode: a double. Not-a-numbers, NA among them, and infinities are values like others.
#pragma once

#include "core/enode.h"

namespace quillon {

class RealENode final : public ENode {
 public:
  explicit RealENode(double value, uint32_t initialFlags = FlagSettled) : ENode(initialFlags), value(value) {}

  uint32_t GetType() const override { return RealType; }
  bool IsNegative() const override { return value < 0.0; }
  void Negate() override { value = -value; }
  double GetValue() const override { return value; }
  // Literals are leaves of every numeric walk: one call, not two.
  double GetValueAt(const double*, const double*) const override { return value; }
  uint32_t Hash() const override;
  ENode* CloneNode() const override { return new RealENode(value); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;

  double value;
};

// Equal doubles, 0.0 and -0.0 alike; two not-a-numbers of any bits are equal too.
bool RealEqual(double a, double b);

}  // namespace quillon
