// DateENode: a date literal such as 1995Q3 or 1995:3:14.
#pragma once

#include "core/date_value.h"
#include "core/enode.h"

namespace quillon {

class DateENode final : public ENode {
 public:
  explicit DateENode(const DateValue& date, uint32_t initialFlags = FlagSettled)
      : ENode(initialFlags), year(date.year), period(date.period), subperiod(date.subperiod),
        separator(date.separator) {}

  uint32_t GetType() const override { return DateType; }
  uint32_t Hash() const override;
  ENode* CloneNode() const override { return new DateENode(DateValue{year, period, subperiod, separator}); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;

  int32_t year;
  int32_t period;
  int32_t subperiod;  // -1 when absent
  char separator;
};

}  // namespace quillon
