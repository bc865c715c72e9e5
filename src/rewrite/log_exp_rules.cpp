// LogRule and ExpRule; see log_exp_rules.h. Reals go through the platform's log and exp.
#include "rewrite/log_exp_rules.h"

#include <cmath>

#include "core/int_node.h"
#include "core/real_node.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// f(exact) --> the integer exactResult; f(real) --> the real fn(real); one argument only.
uint32_t FoldElementary(ENode** node, int32_t exact, int32_t exactResult, double (*fn)(double)) {
  ENode* call = *node;
  if (call->childCount != 1) return 0;
  const ENode* argument = call->firstChild;
  if (IsIntValue(argument, exact)) {
    *node = ReplaceNode(call, new IntENode(exactResult));
    return 1;
  }
  if (argument->GetType() == RealType) {
    *node = ReplaceNode(call, new RealENode(fn(static_cast<const RealENode*>(argument)->value)));
    return 1;
  }
  return 0;
}

double NaturalLog(double x) { return std::log(x); }
double Exponential(double x) { return std::exp(x); }

}  // namespace

uint32_t LogRule::Apply(ENode** node) { return FoldElementary(node, 1, 0, NaturalLog); }

uint32_t ExpRule::Apply(ENode** node) { return FoldElementary(node, 0, 1, Exponential); }

}  // namespace quillon
