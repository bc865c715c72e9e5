// Order and equality of nodes and trees: the total order that sorting relies on, and the
// structural equality tests that go with it.
#pragma once

#include <cstdint>

#include "core/enode.h"

namespace quillon {

// The two nodes alone, without children: -1, 0 or 1. Nodes of different classes order by
// their class tags, so literals come first, then symbols, then functions.
int NodeCompare(const ENode* a, const ENode* b);

// The order of sorted trees (borrows both; neither may be null): negative when a sorts first,
// 0 for equal trees, positive when b sorts first. A function that orders through its key child
// (sums, products, powers, negation) sorts where that child sorts, after the child itself, so
// that x, 2*x, x^2 and -x stand together.
int32_t NodeOrder(const ENode* a, const ENode* b);

// Whole trees, structurally: same shapes, classes and class fields. Not commutative-aware.
bool NodeEqual(const ENode* a, const ENode* b);
// Two sibling chains, forward by next or backward by prev; two null heads are equal.
bool TailEqual(const ENode* a, const ENode* b);
bool TailEqualBackward(const ENode* a, const ENode* b);

// Sorts count borrowed nodes in place into ascending NodeOrder. Not stable.
void HeapSortNodes(ENode** nodes, int32_t count);

}  // namespace quillon
