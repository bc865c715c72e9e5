// WildcardENode: a pattern variable #1, or a lettered one such as #S1 (a symbol slot of the
// compiled form) and #T1 (a temporary of the compiled form).
#pragma once

#include "core/enode.h"

namespace quillon {

class WildcardENode final : public ENode {
 public:
  WildcardENode(int32_t index, char kind, uint32_t initialFlags = FlagSettled)
      : ENode(initialFlags), index(index), kind(kind) {}

  uint32_t GetType() const override { return WildcardType; }
  // Kind S reads s[index], kind T reads t[index], unchecked; any other kind is NA.
  double GetValueAt(const double* t, const double* s) const override;
  uint32_t Hash() const override;
  ENode* CloneNode() const override { return new WildcardENode(index, kind); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;

  int32_t index;
  char kind;  // 0 for a pattern wildcard
};

}  // namespace quillon
