// FlattenRule; see flatten_rule.h.
#include "rewrite/flatten_rule.h"

#include "core/int_node.h"
#include "core/node_order.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

bool SameNode(const ENode* a, const ENode* b) { return NodeCompare(a, b) == 0; }

// Dissolves every child that matches x, going on with the children that come up in its place,
// so that nesting of any depth disappears.
void DissolveAll(ENode* x) {
  for (ENode* c = x->firstChild; c != nullptr;) c = SameNode(c, x) ? c->Splice() : c->next;
}

// One pass over the children that stand now; what it splices in waits for the next pass.
// Returns whether anything dissolved.
bool DissolveOnce(ENode* x) {
  bool dissolved = false;
  for (ENode* c = x->firstChild; c != nullptr;) {
    ENode* following = c->next;
    if (SameNode(c, x)) {
      c->Splice();
      dissolved = true;
    }
    c = following;
  }
  return dissolved;
}

}  // namespace

uint32_t FlattenRule::Apply(ENode** node) {
  ENode* call = *node;
  ENode* x = call->firstChild;
  if (call->childCount == 1) {
    DissolveAll(x);
  } else if (call->childCount == 2 && call->lastChild->GetType() == IntType) {
    const int32_t passes = static_cast<IntENode*>(call->lastChild)->value;
    for (int32_t pass = 0; pass < passes && DissolveOnce(x); ++pass) {
    }
  } else {
    return 0;
  }
  x->Unlink();
  *node = ReplaceNode(call, x);
  return 0;
}

}  // namespace quillon
