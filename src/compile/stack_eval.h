// Stack evaluation: a prepared tree computed as plain arithmetic on a stack of doubles that the
// caller owns, by an iterative post-order walk that neither recurses nor allocates.
#pragma once

#include <cstdint>

#include "core/enode.h"

namespace quillon {

// Computes the tree at root (borrowed, unchanged) for one set of inputs: leaves go to the next
// cell, a function node's StackOp combines its argument cells. #Ti reads stack[i], #Si reads
// inputs[i]; neither array nor index is checked. Returns the number of cells in use at the end:
// the temporaries and then the results, the answer of a single expression in the last cell.
// A root with following siblings is evaluated alone.
int32_t StackEvaluate(const ENode* root, double* stack, const double* inputs);

}  // namespace quillon
