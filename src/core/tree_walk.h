// Iterative walks over whole trees: pre-order stepping by the parent links, the tree hash and
// the flag walks. None of them recurses, so trees of any depth are safe.
#pragma once

#include <cstdint>

#include "core/enode.h"

namespace quillon {

// The node after `node` in pre-order within the subtree of root, or null at the end.
ENode* NextInPreorder(const ENode* node, const ENode* root);
// The same, without entering node's children.
ENode* NextSkippingChildren(const ENode* node, const ENode* root);

// Hash of a whole tree: the root's Hash, with each child's tree hash rotated by its position.
uint32_t TreeHash(const ENode* root);

// Number of nodes in the subtree.
int32_t CountNodes(const ENode* root);

}  // namespace quillon
