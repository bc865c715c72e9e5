// The symbol census rules declared in symbol_list_rules.h. Every walk steps by the links, so a
// chain of any length is safe.
#include "analysis/symbol_list_rules.h"

#include <cstdint>
#include <initializer_list>
#include <limits>

#include "analysis/list_steps.h"
#include "core/function_node.h"
#include "core/int_node.h"
#include "core/symbol_node.h"
#include "core/tree_walk.h"
#include "core/well_known.h"

namespace quillon {
namespace {

// ---- SymlistRule

// The class mask of the call: its integer second argument, or every class. False when the
// second argument is not an integer, or the call has another number of arguments.
bool ClassMaskOf(const ENode* call, uint32_t& mask) {
  if (call->childCount == 1) {
    mask = kClassBits;
    return true;
  }
  if (call->childCount != 2 || call->lastChild->GetType() != IntType) return false;
  mask = static_cast<uint32_t>(static_cast<const IntENode*>(call->lastChild)->value);
  return true;
}

// Appends to list a copy of every symbol leaf under root whose class meets mask.
void GatherSymbols(const ENode* root, uint32_t mask, ENode* list) {
  for (const ENode* n = root; n != nullptr; n = NextInPreorder(n, root)) {
    if (n->GetType() != SymbolType) continue;
    if ((static_cast<const SymbolENode*>(n)->def->bits & kClassBits & mask) != 0) list->AppendChild(n->Clone());
  }
}

// ---- IRange1DRule, IRange2DRule

// Whether a symbol counts for s: a list names the symbols among its children, a symbol itself,
// and anything else lets every symbol count. Only the definitions are compared.
bool NamedBy(const SymbolENode* symbol, const ENode* s) {
  if (IsCallOf(s, fnList)) {
    for (const ENode* item : Children(s))
      if (item->GetType() == SymbolType && static_cast<const SymbolENode*>(item)->def == symbol->def) return true;
    return false;
  }
  if (s->GetType() == SymbolType) return static_cast<const SymbolENode*>(s)->def == symbol->def;
  return true;
}

// A range of indices, empty while it holds the two extremes.
struct IndexRange {
  int32_t low = std::numeric_limits<int32_t>::max();
  int32_t high = std::numeric_limits<int32_t>::min();

  void Take(int32_t index) {
    if (index < low) low = index;
    if (index > high) high = index;
  }
};

// The ranges of the first and the second index over the references of e that s names and
// that have two indices (twoIndices) or one.
void GatherRanges(const ENode* e, const ENode* s, bool twoIndices, IndexRange& first, IndexRange& second) {
  for (const ENode* n = e; n != nullptr; n = NextInPreorder(n, e)) {
    if (n->GetType() != SymbolType) continue;
    const auto* symbol = static_cast<const SymbolENode*>(n);
    if (!NamedBy(symbol, s) || (symbol->index2 != -1) != twoIndices) continue;
    first.Take(symbol->index1);
    second.Take(symbol->index2);
  }
}

// The call gives way to a list of the ranges' bounds, in order.
uint32_t AnswerRanges(ENode** node, std::initializer_list<const IndexRange*> ranges) {
  HeldList list;
  for (const IndexRange* range : ranges) {
    list.Node()->AppendChild(new IntENode(range->low));
    list.Node()->AppendChild(new IntENode(range->high));
  }
  *node = list.Replace(*node);
  return 1;
}

}  // namespace

uint32_t SymlistRule::Apply(ENode** node) {
  uint32_t mask = 0;
  if (!ClassMaskOf(*node, mask)) return 0;
  HeldList list;
  GatherSymbols(*node, mask, list.Node());
  MakeSortedSet(list.Node());
  *node = list.Replace(*node);
  return 1;
}

uint32_t IRange1DRule::Apply(ENode** node) {
  if ((*node)->childCount != 2) return 0;
  IndexRange first, second;
  GatherRanges((*node)->firstChild, (*node)->lastChild, false, first, second);
  return AnswerRanges(node, {&first});
}

uint32_t IRange2DRule::Apply(ENode** node) {
  if ((*node)->childCount != 2) return 0;
  IndexRange first, second;
  GatherRanges((*node)->firstChild, (*node)->lastChild, true, first, second);
  return AnswerRanges(node, {&first, &second});
}

}  // namespace quillon
