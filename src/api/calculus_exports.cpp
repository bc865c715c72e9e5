// Calculus: derivatives, Taylor expansion and the implicit form of an equation, each a call of
// its catalogued operation.
#include "api/rule_call.h"
#include "core/int_node.h"
#include "core/well_known.h"
#include "rewrite/driver.h"

using namespace quillon;

extern "C" {

QUILLON_API mathexpr* QUILLON_CALL mathexpr_deriv(mathexpr* f, mathexpr* x) { return CallForHost(fnDeriv, {f, x}); }

QUILLON_API mathexpr* QUILLON_CALL mathexpr_deriv2(mathexpr* f, mathexpr* x, mathexpr* y) {
  return CallForHost(fnDeriv, {f, x, y});
}

QUILLON_API mathexpr* QUILLON_CALL mathexpr_derivx(mathexpr* f, mathexpr* x, int32_t n) {
  return CallForHost(fnDerivx, {f, x, CallArgument(new IntENode(n))});
}

QUILLON_API mathexpr* QUILLON_CALL mathexpr_taylor(mathexpr* f, mathexpr* x, mathexpr* x0, int32_t n) {
  return CallForHost(fnTaylor, {f, x, x0, CallArgument(new IntENode(n))});
}

// In place: the tree of e becomes the argument of @implicit, and e ends on the answer; clones of
// e see the equation changed, as the rule changes its node rather than copying it.
QUILLON_API void QUILLON_CALL mathexpr_make_implicit(mathexpr* e) {
  if (e == nullptr) return;
  *HandleOf(e) = HandleOf(e)->TakeOrCloneDeep();  // clones of e share the change; held children don't
  ExprHandle call(fnImplicit, *HandleOf(e));
  *HandleOf(e) = ExprHandle();
  EvaluateInPlace(call, ModeSimplify | ModeCanonical);
  *HandleOf(e) = call;
}

}  // extern "C"
