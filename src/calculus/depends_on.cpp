// DependsOn: a pre-order walk by the links, so that a chain of any length is safe.
#include "calculus/depends_on.h"

#include "core/node_order.h"
#include "core/tree_walk.h"

namespace quillon {
namespace {

bool SymbolMatches(const ENode* symbol, const ENode* v) {
  if (v->firstChild == nullptr) return NodeEqual(symbol, v);
  for (const ENode* variable : Children(v))
    if (NodeEqual(symbol, variable)) return true;
  return false;
}

}  // namespace

bool DependsOn(const ENode* e, const ENode* v) {
  for (const ENode* n = e; n != nullptr; n = NextInPreorder(n, e)) {
    const uint32_t type = n->GetType();
    if (type == WildcardType) return true;
    if (type == SymbolType && SymbolMatches(n, v)) return true;
  }
  return false;
}

}  // namespace quillon
