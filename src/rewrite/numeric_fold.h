// Folding of two numeric literals into one, as sums and products do it: exact 32-bit integer
// and rational arithmetic while it lasts, doubles from the first overflow on. Rules call this
// and never check overflow themselves.
#pragma once

#include "core/enode.h"
#include "core/exact_numbers.h"

namespace quillon {

enum class FoldOp { Add, Multiply };

// Folds the numeric node b into the numeric node a (a = a op b) and returns the node that now
// stands in a's place: a itself, or a new node of another class. b is left alone.
//  - a real on either side makes a real;
//  - two integers (or truth values) stay in a's class, with the exact result in its value;
//  - otherwise a becomes a rational (through GetRational), and a whole result an integer;
//  - an overflow or an inexact result turns a into a real of its value and folds again.
ENode* FoldNumber(ENode* a, const ENode* b, FoldOp op);

// A node for an exact rational: an IntENode for a denominator of 1, else an unsettled
// RationalENode.
ENode* NewNumber(Rational value);

}  // namespace quillon
