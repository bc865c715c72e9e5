// The numeric rules of log and exp; their algebra is written as pattern rules.
#pragma once

#include "core/rule.h"

namespace quillon {

// log(1) --> 0; log(real) --> its value
class LogRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// exp(0) --> 1; exp(real) --> its value
class ExpRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
