// Rules of d and dlog: the standard argument list d(e, n, s1, ...), merged nesting, the display
// forms, and the writing out of a difference in plain lagged terms under ModeTimeExpand.
// A stored difference is d(e, n, seasonal lags...); dlog(e, ...) is stored as d(log(e), ...).
#pragma once

#include "core/rule.h"

namespace quillon {

// d(e) --> d(e, 1);  d(e, 0) --> e;  d(e, 0, 0) --> e;  d(e, 0, 1) --> d(e, 1)
// Every other argument list stays as written, non-integer orders included.
class DifferenceRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// d(d(e, a, inner lags...), b, outer lags...) --> d(e, @plus(b, a), inner lags..., outer lags...)
//   when both have at least two arguments; the sum folds on the next pass.
class DifferenceRule2 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// d(e, n, s1, s2, ..., sm) --> d(d(...d(e, 0, sm)..., 0, s2), n, s1)   in ModeDisplay
// Text has no way to write more than one seasonal lag per call.
class DifferenceRule3 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// d(e, 1) --> d(e)   in ModeDisplay
class DifferenceRule5 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// d(log(e), ...) --> dlog(e, ...)   in ModeDisplay
// Runs after DifferenceRule5, so d(log(x), 1) ends as dlog(x).
class DifferenceRule6 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

// d(u, n, s1, ..., sm) --> u - u(-s) for each seasonal lag s, then the binomial expansion
//   @plus(u, @times(-n, u(-1)), ..., @times((-1)^n, u(-n)))   in ModeTimeExpand
//   when the last argument is an integer literal.
// The seasonal lags are taken from the last backwards, over arguments that are not integers,
// and so an order that follows a non-integer lag can be taken as a lag: such input is outside
// the defined forms. Coefficients are 32-bit and wrap for large n, silently.
class DifferenceRule7 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;

 private:
  // Step one: each integer seasonal lag becomes a difference of the first argument. Returns
  // whether any argument beyond the order was there.
  static bool TakeSeasonalLags(ENode* call);
  // Step two: d(u, n) becomes the alternating binomial sum in the call's place.
  static ENode* ExpandOrder(ENode* call, int32_t n);
};

// dlog(e, ...) --> d(log(e), ...)   in ModeCanonical
class LogDiffRule1 final : public Rule {
 public:
  using Rule::Rule;
  uint32_t Apply(ENode** node) override;
};

}  // namespace quillon
