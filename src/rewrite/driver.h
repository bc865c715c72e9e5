// The rewrite driver: Rewrite walks a tree bottom-up and tries the rules of each function node
// until none changes anything; Evaluate brings a handle's tree through the stages of a mode.
#pragma once

#include <cstdint>

#include "core/enode.h"
#include "core/expr_handle.h"
#include "core/rule.h"

namespace quillon {

// Rewrites the tree of node (which may have a parent) in mode and returns what stands in its
// place afterwards.
ENode* Rewrite(ENode* node, uint32_t mode);

// Canonical stage (if asked), then the other bits but display, then display (if asked); the
// handle follows its root wherever rules move it. A tree that other handles share (its root, or
// any node in it, or the root is inside another tree) is copied first, and the handle moves to
// the copy: the others never see a node moved or freed under them.
void Evaluate(ExprHandle& handle, uint32_t mode);

// The stable merge sort of a node's children by NodeOrder, in place on the links.
void SortChildren(ENode* node);

}  // namespace quillon
