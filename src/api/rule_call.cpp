// The frame shared by all rule wrappers; see rule_call.h.
#include "api/rule_call.h"

#include "api/life_cycle.h"
#include "core/function_node.h"
#include "rewrite/driver.h"

namespace quillon {

ExprHandle EvaluateCall(FunctionDef* def, std::initializer_list<CallArgument> arguments) {
  ExprHandle call(def);
  bool complete = true;
  for (const CallArgument& argument : arguments) {
    if (argument.node != nullptr)
      call.Root()->AppendChild(argument.node);
    else
      complete = false;
  }
  if (!complete) return StartedEmpty();
  Evaluate(call, ModeSimplify | ModeCanonical);
  return call;
}

mathexpr* CallForHost(FunctionDef* def, std::initializer_list<CallArgument> arguments) {
  return ToHost(EvaluateCall(def, arguments));
}

}  // namespace quillon
