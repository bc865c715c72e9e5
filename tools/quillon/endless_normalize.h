// The one input of the library that never ends: @normalize of an equation holding a lag form it
// cannot write out. The program looks for it before evaluating, through the public interface.
#pragma once

#include <string>

#include "quillon.h"

// The text of the first d, dlog, @movsum, @movav or @pch inside a @normalize of e that cannot be
// written out in lags (an order that is not an integer literal, such as d(x, k) or
// @movsum(x, 0)), or "" when there is none. e is borrowed, parsed from source and not yet
// evaluated. Text shows 2.0 as 2, so an order that reads like a number written with a point or
// an exponent in source counts as no integer literal.
std::string EndlessNormalizeForm(mathexpr* e, const std::string& source);

// The message that refuses such an input.
std::string EndlessNormalizeMessage(const std::string& form);
