// Sign, division and logic rules; see sign_logic_rules.h. The call form can build any of these
// nodes with too few arguments: the rules leave such a node as it stands.
#include "rewrite/sign_logic_rules.h"

#include "core/bool_node.h"
#include "core/int_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// @times(-1, term), with term (linked anywhere) moved in.
ENode* Negation(ENode* term) {
  ENode* product = NewCall(fnTimes);
  product->AppendChild(new IntENode(-1));
  MoveToEnd(product, term);
  return product;
}

// @pow(base, -1), with base (linked anywhere) moved in.
ENode* Reciprocal(ENode* base) {
  ENode* power = NewCall(fnPow);
  MoveToEnd(power, base);
  power->AppendChild(new IntENode(-1));
  return power;
}

// op(first, second), both moved in.
ENode* Pair(FunctionDef* op, ENode* first, ENode* second) {
  ENode* pair = NewCall(op);
  MoveToEnd(pair, first);
  MoveToEnd(pair, second);
  return pair;
}

// The connective with the given neutral truth value (1 for @and, 0 for @or): neutral arguments
// go, the first other truth value becomes the result, and no arguments give the neutral value.
uint32_t FoldConnective(ENode** node, int32_t neutral) {
  ENode* call = *node;
  if (call->childCount == 0) {
    *node = ReplaceNode(call, new BoolENode(neutral != 0));
    return 1;
  }
  uint32_t changed = 0;
  for (ENode* c = call->firstChild; c != nullptr;) {
    ENode* following = c->next;
    if (c->GetType() == BoolType) {
      if (static_cast<BoolENode*>(c)->value != neutral) {
        c->Unlink();
        *node = ReplaceNode(call, c);
        return 1;
      }
      c->DestroyTree();
      changed = 1;
    }
    c = following;
  }
  if (changed != 0) call->flags &= ~FlagSettled;
  return changed;
}

}  // namespace

uint32_t UPlusRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount == 0) return 0;
  ENode* argument = call->firstChild;
  if (call->parent == nullptr) {
    // A root has no list to take further arguments into: they go with the node.
    argument->Unlink();
    *node = ReplaceNode(call, argument);
    return 1;
  }
  call->Splice();
  *node = argument;
  return 1;
}

uint32_t UMinusRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount == 0) return 0;
  *node = ReplaceNode(call, Negation(call->firstChild));
  return 1;
}

uint32_t MinusRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount < 2) return 0;
  ENode* negated = Negation(call->lastChild);
  *node = ReplaceNode(call, Pair(fnPlus, call->firstChild, negated));
  return 1;
}

uint32_t DivideRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount < 2) return 0;
  ENode* reciprocal = Reciprocal(call->lastChild);
  *node = ReplaceNode(call, Pair(fnTimes, call->firstChild, reciprocal));
  return 1;
}

uint32_t AndRule::Apply(ENode** node) { return FoldConnective(node, 1); }

uint32_t OrRule::Apply(ENode** node) { return FoldConnective(node, 0); }

}  // namespace quillon
