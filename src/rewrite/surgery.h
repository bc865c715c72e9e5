// Tree surgery that the rules share: tests of numeric nodes, replacing a node by a new one, and
// wrapping a node in a new function node. Every rule that rebuilds a node goes through these.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "core/enode.h"
#include "core/function_def.h"

namespace quillon {

// Bool, Int, Rational or Real.
bool IsNumeric(const ENode* node);
// An IntENode of exactly this value.
bool IsIntValue(const ENode* node, int32_t value);

// `fresh` (a free node) takes old's place; old and its subtree are freed (nodes that handles
// still use survive as free trees). Returns fresh.
ENode* ReplaceNode(ENode* old, ENode* fresh);

// child, a child of node, takes node's place; node and its other children are freed. Returns
// child. Safe at the root, where Splice would leave the other children free.
ENode* ReplaceByChild(ENode* node, ENode* child);

// A new node of def takes node's place, with node as its only child. Returns the new node, which
// is unsettled.
ENode* WrapIn(FunctionDef* def, ENode* node);
// The free node wrapper (which may hold children already) takes node's place, and node becomes
// its last child. Returns wrapper.
ENode* WrapWith(ENode* wrapper, ENode* node);

// A new unsettled function node of def without children.
ENode* NewCall(FunctionDef* def);
// The same with the free nodes children (taken) linked in order.
ENode* NewCall(FunctionDef* def, std::initializer_list<ENode*> children);

// Takes `child` (linked anywhere) out of its place and appends it to parent. Returns child.
ENode* MoveToEnd(ENode* parent, ENode* child);

}  // namespace quillon
