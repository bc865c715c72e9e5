// Search: where a pattern stands in an expression, with its bindings if asked.
#include "api/rule_call.h"
#include "core/bool_node.h"
#include "core/well_known.h"

using namespace quillon;

extern "C" {

QUILLON_API mathexpr* QUILLON_CALL mathexpr_find(mathexpr* e, mathexpr* pattern, uint8_t wantBindings) {
  return CallForHost(fnFind, {e, pattern, CallArgument(new BoolENode(wantBindings != 0))});
}

}  // extern "C"
