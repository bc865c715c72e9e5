// DateENode hash, text and order.
#include "core/date_node.h"

#include "shared/conversions.h"
#include "shared/hash.h"

namespace quillon {

uint32_t DateENode::Hash() const {
  return MixHash(static_cast<uint32_t>(year)) ^ RotateLeft(MixHash(static_cast<uint32_t>(period)), 8) ^
         RotateLeft(MixHash(static_cast<uint32_t>(subperiod)), 16);
}

SharedText DateENode::Print() const {
  const char sep[2] = {separator, 0};
  SharedText text = IntegerToText(year, 0) + sep + IntegerToText(period, 0);
  if (subperiod != -1) text = text + sep + IntegerToText(subperiod, 0);
  return text;
}

bool DateENode::IsEqual(const ENode& other) const {
  const auto& b = static_cast<const DateENode&>(other);
  return year == b.year && period == b.period && subperiod == b.subperiod && separator == b.separator;
}

int DateENode::Compare(const ENode& other) const {
  const auto& b = static_cast<const DateENode&>(other);
  if (year != b.year) return year < b.year ? -1 : 1;
  if (period != b.period) return period < b.period ? -1 : 1;
  if (subperiod != b.subperiod) return subperiod < b.subperiod ? -1 : 1;
  const auto sa = static_cast<signed char>(separator), sb = static_cast<signed char>(b.separator);
  return sa < sb ? -1 : (sa > sb ? 1 : 0);
}

}  // namespace quillon
