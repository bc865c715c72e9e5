// Inspection of what an expression contains: numeric or not, the attributes of its functions and
// symbols, and the host's priority class.
#include "analysis/predicate_rules.h"
#include "api/handle.h"
#include "core/function_node.h"
#include "core/symbol_node.h"
#include "core/tree_walk.h"

using namespace quillon;

namespace {

struct Contents {
  int32_t nodes = 0;
  uint32_t tags = 0;
  uint32_t attributes = 0;  // with AttrDerivative when a node has f[1](x) notation
  uint32_t symbolBits = 0;
};

// A NULL handle has no contents at all: no node, no class, no attribute.
Contents Survey(mathexpr* e) {
  Contents c;
  if (e == nullptr) return c;
  const ENode* root = RootOf(e);
  for (const ENode* n = root; n != nullptr; n = NextInPreorder(n, root)) {
    ++c.nodes;
    c.tags |= n->GetType();
    if (const auto* call = n->GetType() == FunctionType ? static_cast<const FunctionENode*>(n) : nullptr)
      c.attributes |= call->def->attributes | (call->derivative != 0 ? uint32_t{AttrDerivative} : 0u);
    else if (n->GetType() == SymbolType)
      c.symbolBits |= static_cast<const SymbolENode*>(n)->def->bits;
  }
  return c;
}

}  // namespace

extern "C" {

// Numbers and plain functions only, read on the tree as it stands, with no evaluation.
QUILLON_API uint32_t QUILLON_CALL mathexpr_is_numeric(mathexpr* e) { return e != nullptr && IsNumericTree(RootOf(e)); }

QUILLON_API uint32_t QUILLON_CALL mathexpr_get_attributes(mathexpr* e, int32_t* nodeCount,
                                                          uint32_t* functionAttributes, uint32_t* symbolBits) {
  const Contents c = Survey(e);
  if (nodeCount != nullptr) *nodeCount = c.nodes;
  if (functionAttributes != nullptr) *functionAttributes = c.attributes;
  if (symbolBits != nullptr) *symbolBits = c.symbolBits;
  return 0;
}

// The first line that applies decides; hosts rank expressions by these numbers.
QUILLON_API int32_t QUILLON_CALL mathexpr_get_priority(mathexpr* e) {
  const Contents c = Survey(e);
  if (c.nodes == 0) return 0;
  const int32_t withScalars = (c.symbolBits & SymbolClass2) != 0 ? 1 : 0;
  if ((c.tags & ErrorType) != 0) return 0;
  if ((c.attributes & AttrRandom) != 0) return 1;
  if ((c.symbolBits & SymbolUnknown) != 0 || (c.attributes & AttrDerivative) != 0) return 0;
  if ((c.symbolBits & kLaggedClasses) != 0 || (c.attributes & AttrDate) != 0) return 4 + withScalars;
  return 2 + withScalars;
}

}  // extern "C"
