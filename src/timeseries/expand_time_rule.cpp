// ExpandTimeRule; see expand_time_rule.h.
#include "timeseries/expand_time_rule.h"

#include <vector>

#include "core/function_node.h"
#include "core/symbol_node.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

constexpr uint32_t kEveryClass = 0xFFFF;

// The symbols named by the second argument of @expandtime.
std::vector<SymbolRef> NamedSymbols(const ENode* names) {
  std::vector<SymbolRef> symbols;
  if (names->GetType() == SymbolType) {
    symbols.push_back(*static_cast<const SymbolENode*>(names));
  } else if (IsCallOf(names, fnList)) {
    for (const ENode* c : Children(names))
      if (c->GetType() == SymbolType) symbols.push_back(*static_cast<const SymbolENode*>(c));
  }
  return symbols;
}

}  // namespace

uint32_t ExpandTimeRule::Apply(ENode** node) {
  ENode* call = *node;
  ENode* e = call->firstChild;
  if (call->childCount == 1) {
    e->ClearFlagsByType(kEveryClass, FlagSettled);
    e->SetFlagsByType(kEveryClass, ModeTimeExpand);
  } else if (call->childCount == 2) {
    const std::vector<SymbolRef> symbols = NamedSymbols(call->lastChild);
    MarkSymbolUsers(e, symbols.data(), static_cast<int32_t>(symbols.size()), ModeTimeExpand, ~uint32_t{FlagSettled});
  } else {
    return 0;
  }
  *node = ReplaceByChild(call, e);
  return 1;
}

}  // namespace quillon
