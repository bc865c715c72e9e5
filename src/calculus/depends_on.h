// The dependency test that differentiation, the predicates, the linear forms and the normal
// forms share: does a tree count as depending on a variable (or on any of a list of them).
#pragma once

#include "core/enode.h"

namespace quillon {

// Whether tree e (borrowed) holds a symbol equal to v or, when v has children, to one of v's
// children (any function serves as a list). Wildcards depend on everything; function nodes
// count only through their children, so f(y) does not depend on f(y) unless y does.
bool DependsOn(const ENode* e, const ENode* v);

}  // namespace quillon
