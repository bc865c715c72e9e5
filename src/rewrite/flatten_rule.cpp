// FlattenRule; see flatten_rule.h.
#include "rewrite/flatten_rule.h"

#include "core/int_node.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// Splices each child that compares equal to the argument (same class, and for calls the same
// function), going on with the children that come up in its place.
void SpliceNested(ENode* argument) {
  for (ENode* c = argument->firstChild; c != nullptr;) {
    if (c->GetType() == argument->GetType() && c->Compare(*argument) == 0)
      c = c->Splice();
    else
      c = c->next;
  }
}

}  // namespace

uint32_t FlattenRule::Apply(ENode** node) {
  ENode* call = *node;
  ENode* argument = call->firstChild;
  if (call->childCount == 1) {
    SpliceNested(argument);
  } else if (call->childCount == 2 && call->lastChild->GetType() == IntType) {
    argument->SplitChildren(static_cast<IntENode*>(call->lastChild)->value, false);
  } else {
    return 0;
  }
  *node = ReplaceByChild(call, argument);
  return 0;
}

}  // namespace quillon
