// StringENode: a text literal; holds one reference on its SharedText.
#pragma once

#include <utility>

#include "core/enode.h"

namespace quillon {

class StringENode final : public ENode {
 public:
  explicit StringENode(SharedText text, uint32_t initialFlags = FlagSettled)
      : ENode(initialFlags), text(std::move(text)) {}

  uint32_t GetType() const override { return StringType; }
  uint32_t Hash() const override { return text.Hash(0); }
  ENode* CloneNode() const override { return new StringENode(text); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;

  SharedText text;
};

}  // namespace quillon
