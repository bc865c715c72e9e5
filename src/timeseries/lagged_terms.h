// The building blocks that writing out lags, differences, moving and percent-change forms
// share: lagged copies of a term and the change of a term over a number of periods.
#pragma once

#include <cstdint>

#include "core/enode.h"

namespace quillon {

// A new copy of e (borrowed) looking back `lag` periods: series symbols shifted by -lag. A lag
// of the most negative integer wraps, as all index arithmetic here is in 32 bits.
ENode* LaggedCopy(const ENode* e, int32_t lag);

// Appends @times(coefficient, LaggedCopy(source, lag)) to sum.
void AppendLaggedTerm(ENode* sum, int32_t coefficient, const ENode* source, int32_t lag);

// e --> @plus(e, @times(-1, e lagged by lag)), in e's place. Returns the new, unsettled sum.
ENode* WrapInChange(ENode* e, int32_t lag);

// e --> @times(@plus(e, @times(-1, L)), @pow(L, -1)) with L = e lagged by lag, in e's place:
// the change over lag periods divided by the earlier value. Returns the new product.
ENode* WrapInRelativeChange(ENode* e, int32_t lag);

// -value in 32 bits, wrapping at the most negative integer.
int32_t NegateWrapping(int32_t value);

// The value of an IntENode argument (the caller has checked the class).
int32_t IntValue(const ENode* node);

}  // namespace quillon
