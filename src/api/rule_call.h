// Rule wrappers build a call of a catalogued operation over copies of the host's arguments and
// evaluate it, so the host's trees are never touched and one handle may be given twice.
#pragma once

#include <initializer_list>

#include "api/handle.h"
#include "core/function_def.h"

namespace quillon {

// An argument of a wrapper call: a host expression (copied) or a literal node (taken).
struct CallArgument {
  CallArgument(mathexpr* e) : node(RootOf(e)->Clone()) {}  // NOLINT: implicit by design
  explicit CallArgument(ENode* literal) : node(literal) {}
  ENode* node;
};

// def(arguments...) evaluated with mode 3. A call that no rule takes stays unevaluated.
ExprHandle EvaluateCall(FunctionDef* def, std::initializer_list<CallArgument> arguments);

// The same, handed to the host.
mathexpr* CallForHost(FunctionDef* def, std::initializer_list<CallArgument> arguments);

}  // namespace quillon
