// Text in: the exports that parse a host's text into an expression.
#include <cstring>

#include "api/handle.h"
#include "api/life_cycle.h"
#include "core/error_node.h"
#include "core/function_node.h"
#include "core/well_known.h"

using namespace quillon;

namespace {

// Lengths are 32-bit inside: a longer text is refused, never cut to its first bytes.
constexpr const char* kTextTooLong = "expression text too long";

bool HeldWhole(const char* text) {
  return strnlen(text, static_cast<size_t>(kMaxTextLength) + 1) <= static_cast<size_t>(kMaxTextLength);
}

}  // namespace

extern "C" {

QUILLON_API mathexpr* QUILLON_CALL mathexpr_create(mathsymtable* t, const char* text) {
  return mathexpr_create_ex(t, text, 0);
}

// Flag bit 0 reads a top-level "a = b" as the assignment "a := b"; nested equations stay.
QUILLON_API mathexpr* QUILLON_CALL mathexpr_create_ex(mathsymtable* t, const char* text, uint32_t flags) {
  ThreadContext* context = EnsureThreadContext();
  if (text == nullptr) text = "";
  if (!HeldWhole(text)) return ToHost(ExprHandle(static_cast<ENode*>(new ErrorENode(SharedText(kTextTooLong)))));
  ExprHandle tree = context->ParseText(SharedText(text), TableOf(t), flags);
  ENode* root = tree.Root();
  if ((flags & 1) != 0 && IsCallOf(root, fnEq) && root->childCount == 2)
    static_cast<FunctionENode*>(root)->def = fnAssign;
  return ToHost(tree);
}

}  // extern "C"
