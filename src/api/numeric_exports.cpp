// mathexpr_stackeval: the numeric face of the library, one evaluation of a prepared tree per call.
#include "api/handle.h"
#include "compile/stack_eval.h"

using namespace quillon;

extern "C" {

QUILLON_API int32_t QUILLON_CALL mathexpr_stackeval(mathexpr* e, double* stack, const double* inputs) {
  if (e == nullptr || stack == nullptr) return 0;
  return StackEvaluate(RootOf(e), stack, inputs);
}

}  // extern "C"
