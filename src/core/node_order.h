// Order and equality of nodes and trees: the total order that sorting relies on, and the
// structural equality tests that go with it.
#pragma once

#include "core/enode.h"

namespace quillon {

// Whole trees, structurally: same shapes, classes and class fields. Not commutative-aware.
bool NodeEqual(const ENode* a, const ENode* b);
// Two sibling chains, forward by next or backward by prev; two null heads are equal.
bool TailEqual(const ENode* a, const ENode* b);
bool TailEqualBackward(const ENode* a, const ENode* b);

}  // namespace quillon
