// RationalENode value, hash, text and order.
#include "core/rational_node.h"

#include <limits>

#include "shared/conversions.h"
#include "shared/hash.h"

namespace quillon {

double RationalENode::GetValue() const {
  if (denominator != 0) return static_cast<double>(numerator) / denominator;
  if (numerator > 0) return std::numeric_limits<double>::infinity();
  if (numerator < 0) return -std::numeric_limits<double>::infinity();
  return NA();
}

uint32_t RationalENode::Hash() const {
  return MixHash(static_cast<uint32_t>(denominator)) ^ RotateLeft(MixHash(static_cast<uint32_t>(numerator)), 16);
}

SharedText RationalENode::Print() const {
  if (denominator == 0) return SharedText(numerator == 1 ? "@Inf" : numerator == -1 ? "-@Inf" : "NA");
  return "(" + IntegerToText(numerator, 0) + "/" + IntegerToText(denominator, 0) + ")";
}

bool RationalENode::IsEqual(const ENode& other) const {
  const auto& b = static_cast<const RationalENode&>(other);
  return numerator == b.numerator && denominator == b.denominator;
}

// Different pairs of the same value, and anything against a not-a-number, give 1 both ways.
int RationalENode::Compare(const ENode& other) const {
  if (IsEqual(other)) return 0;
  return other.GetValue() > GetValue() ? -1 : 1;
}

}  // namespace quillon
