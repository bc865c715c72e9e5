// Text in: the exports that parse a host's text into an expression.
#include "api/handle.h"
#include "api/life_cycle.h"
#include "core/function_node.h"
#include "core/well_known.h"

using namespace quillon;

extern "C" {

QUILLON_API mathexpr* QUILLON_CALL mathexpr_create(mathsymtable* t, const char* text) {
  return mathexpr_create_ex(t, text, 0);
}

// Flag bit 0 reads a top-level "a = b" as the assignment "a := b"; nested equations stay.
QUILLON_API mathexpr* QUILLON_CALL mathexpr_create_ex(mathsymtable* t, const char* text, uint32_t flags) {
  ThreadContext* context = EnsureThreadContext();
  ExprHandle tree = context->ParseText(SharedText(text != nullptr ? text : ""), TableOf(t), flags);
  ENode* root = tree.Root();
  if ((flags & 1) != 0 && IsCallOf(root, fnEq) && root->childCount == 2)
    static_cast<FunctionENode*>(root)->def = fnAssign;
  return ToHost(tree);
}

}  // extern "C"
