// RealENode hash, text and order.
#include "core/real_node.h"

#include <bit>
#include <cmath>

#include "shared/conversions.h"
#include "shared/hash.h"

namespace quillon {

bool RealEqual(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return a == b;
}

// 0.0 and -0.0 hash alike; not-a-numbers with different bits do not.
uint32_t RealENode::Hash() const {
  uint64_t bits = std::bit_cast<uint64_t>(value);
  if (bits == 0x8000000000000000ull) bits = 0;
  return MixHash(static_cast<uint32_t>(bits >> 32)) + MixHash(static_cast<uint32_t>(bits));
}

SharedText RealENode::Print() const {
  if (std::isfinite(value)) return DoubleToText(value, 17);
  if (std::isinf(value)) return SharedText(value > 0 ? "@Inf" : "-@Inf");
  return SharedText("NA");
}

bool RealENode::IsEqual(const ENode& other) const {
  return RealEqual(value, static_cast<const RealENode&>(other).value);
}

// A not-a-number sorts ahead of every other value; not-a-numbers are equal to each other.
int RealENode::Compare(const ENode& other) const {
  const double b = static_cast<const RealENode&>(other).value;
  const bool aNan = std::isnan(value), bNan = std::isnan(b);
  if (aNan || bNan) return aNan && bNan ? 0 : (aNan ? -1 : 1);
  return value < b ? -1 : (value > b ? 1 : 0);
}

}  // namespace quillon
