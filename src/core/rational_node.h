// RationalENode: numerator/denominator over 32-bit integers. Canonical only after rewriting, so
// a node made from a value starts unsettled. A denominator of 0 is +inf, -inf or, as 0/0, NA.
#pragma once

#include "core/enode.h"

namespace quillon {

class RationalENode final : public ENode {
 public:
  RationalENode(int32_t numerator, int32_t denominator, uint32_t initialFlags = 0)
      : ENode(initialFlags), numerator(numerator), denominator(denominator) {}

  uint32_t GetType() const override { return RationalType; }
  bool IsNegative() const override { return numerator < 0; }
  void Negate() override { numerator = static_cast<int32_t>(0u - static_cast<uint32_t>(numerator)); }
  Rational GetRational() const override { return {numerator, denominator}; }
  double GetValue() const override;
  uint32_t Hash() const override;
  ENode* CloneNode() const override { return new RationalENode(numerator, denominator, FlagSettled); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;

  int32_t numerator;
  int32_t denominator;
};

}  // namespace quillon
