// ImplicitRule; see implicit_rule.h.
#include "calculus/implicit_rule.h"

#include "core/function_node.h"
#include "core/int_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {

uint32_t ImplicitRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 1) return 0;
  ENode* e = call->firstChild;
  if (IsCallOf(e, fnAssign) && e->childCount == 2) {
    static_cast<FunctionENode*>(e)->def = fnPlus;
    WrapIn(fnTimes, e->lastChild)->PrependChild(new IntENode(-1));
    e->flags &= ~FlagSettled;
  }
  *node = ReplaceByChild(call, e);
  return 1;
}

}  // namespace quillon
