// The numeric rules of log and exp. Their algebra (log of a power, log of exp, products and
// powers of exp, derivatives) is written as pattern rules in the catalogue.
#pragma once

#include "core/rule.h"

namespace quillon {

// log(1) --> 0; log(r) --> the natural logarithm of r   for a real r
// log(2) stays: only the integer 1 and reals fold. log(0.0) is minus infinity and log(-1.0) a
// not-a-number, values and not errors.
class LogRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// exp(0) --> 1; exp(r) --> e to the power r   for a real r
// exp(1) stays, as log(2) does.
class ExpRule final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
