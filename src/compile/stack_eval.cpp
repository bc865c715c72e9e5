// The stack evaluator's walk; the kernels it calls are in numeric_kernels.cpp.
#include "compile/stack_eval.h"

#include "compile/numeric_kernels.h"
#include "core/function_node.h"

namespace quillon {
namespace {

// A function node combines its argument cells. A derivative left as notation (f[1](x)) is not
// the function's value, and a definition made outside the catalogue has no StackOp: both leave
// NA, as a function without a numeric meaning does.
int32_t Combine(const ENode* node, double* args) {
  const auto* call = static_cast<const FunctionENode*>(node);
  const StackOpFunction op = call->def->StackOp;
  if (op == nullptr || call->derivative != 0) return MissingStackOp(args, node->childCount);
  return op(args, node->childCount);
}

}  // namespace

int32_t StackEvaluate(const ENode* root, double* stack, const double* inputs) {
  int32_t top = -1;
  const ENode* node = root;
  for (;;) {
    while (node->firstChild != nullptr) node = node->firstChild;
    stack[++top] = node->GetValueAt(stack, inputs);
    // Climb while the node is the last of its siblings; each parent's arguments are the
    // childCount cells ending at top.
    while (node != root && node->next == nullptr) {
      node = node->parent;
      const int32_t first = top - node->childCount + 1;
      top = first + Combine(node, stack + first);
    }
    if (node == root) return top + 1;
    node = node->next;
  }
}

}  // namespace quillon
