// ErrorENode: a failure carried as a value; the driver hoists it to the root.
#pragma once

#include <utility>

#include "core/enode.h"

namespace quillon {

class ErrorENode final : public ENode {
 public:
  explicit ErrorENode(SharedText message, uint32_t initialFlags = FlagSettled)
      : ENode(initialFlags), message(std::move(message)) {}

  uint32_t GetType() const override { return ErrorType; }
  uint32_t Hash() const override { return message.Hash(0) ^ 0xAAAAAAAAu; }
  ENode* CloneNode() const override { return new ErrorENode(message); }
  SharedText Print() const override { return message.Wrap("<\"", "\">"); }
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;

  SharedText message;
};

}  // namespace quillon
