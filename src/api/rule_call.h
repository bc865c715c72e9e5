// Rule wrappers build a call of a catalogued operation over copies of the host's arguments and
// evaluate it, so the host's trees are never touched and one handle may be given twice.
#pragma once

#include <initializer_list>

#include "api/handle.h"
#include "core/function_def.h"

namespace quillon {

// An argument of a wrapper call: a host expression (copied) or a literal node (taken).
struct CallArgument {
  CallArgument(mathexpr* e) : node(e != nullptr ? RootOf(e)->Clone() : nullptr) {}  // NOLINT: implicit by design
  explicit CallArgument(ENode* literal) : node(literal) {}
  ENode* node;  // null for a NULL handle
};

// def(arguments...) evaluated with mode 3. A call that no rule takes stays unevaluated. A NULL
// handle among the arguments gives the empty expression, which reads as every export's neutral
// answer (0, no range, a void handle).
ExprHandle EvaluateCall(FunctionDef* def, std::initializer_list<CallArgument> arguments);

// The same, handed to the host.
mathexpr* CallForHost(FunctionDef* def, std::initializer_list<CallArgument> arguments);

}  // namespace quillon
