// SubexprRule: sharing of repeated subtrees by height, folding of single uses, and the numbering
// of symbols. The walks step by links or keep their own stack, so a long chain is safe.
#include "compile/subexpr_rule.h"

#include <algorithm>

#include "compile/symbol_set.h"
#include "core/node_order.h"
#include "core/tree_walk.h"
#include "core/well_known.h"
#include "core/wildcard_node.h"
#include "rewrite/surgery.h"

namespace quillon {
namespace {

// Room for this many heights at the start; a taller tree is counted again.
constexpr size_t kInitialHeights = 20;

// Visits every node of root's subtree in post-order with its height: 0 for a node that is not
// a function, one more than its tallest child for a function. Returns the height of root.
template <class Visit>
size_t WalkHeights(ENode* root, Visit visit) {
  std::vector<size_t> tallestChild;  // one entry per open ancestor
  ENode* node = root;
  for (;;) {
    while (node->firstChild != nullptr) {
      tallestChild.push_back(0);
      node = node->firstChild;
    }
    size_t height = node->GetType() == FunctionType ? 1 : 0;
    for (;;) {
      visit(node, height);
      if (node == root) return height;
      tallestChild.back() = std::max(tallestChild.back(), height);
      if (node->next != nullptr) {
        node = node->next;
        break;
      }
      node = node->parent;
      height = tallestChild.back() + 1;
      tallestChild.pop_back();
    }
  }
}

bool IsTemporary(const ENode* node, int32_t count) {
  if (node->GetType() != WildcardType) return false;
  const auto* w = static_cast<const WildcardENode*>(node);
  return w->kind == 'T' && w->index >= 0 && w->index < count;
}

}  // namespace

uint32_t SubexprRule::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 1) return 0;
  Work work(call);
  CountHeights(work);
  PlaceNodes(work);
  MakeTemporaries(work);
  FoldSingleUses(work);
  ENode* result = NumberSymbols(BuildResult(work));
  // The prepared form is final: simplifying it again could merge the references it shares.
  result->flags |= FlagSettled;
  *node = result;
  return 1;
}

// Bucket k counts the functions of height k (the last bucket takes all taller ones until the
// array is sized to the tree), bucket 0 the other nodes.
void SubexprRule::CountHeights(Work& work) {
  auto count = [&work](ENode*, size_t height) { ++work.ends[std::min(height, work.ends.size() - 1)]; };
  work.ends.assign(kInitialHeights, 0);
  const size_t height = WalkHeights(work.x, count);
  if (height >= kInitialHeights) {
    work.ends.assign(height + 1, 0);
    WalkHeights(work.x, count);
  } else {
    work.ends.resize(height + 1);
  }
}

// Counts become positions (entry k-1 is where height k starts), then every function node goes
// to the next position of its height, so that entry k-1 ends as the end of height k.
void SubexprRule::PlaceNodes(Work& work) {
  work.ends[0] = 0;
  for (size_t k = 1; k < work.ends.size(); ++k) work.ends[k] += work.ends[k - 1];
  work.nodes.resize(work.ends.back());
  WalkHeights(work.x, [&work](ENode* n, size_t height) {
    if (n->GetType() == FunctionType) work.nodes[work.ends[height - 1]++] = n;
  });
}

// Lower heights first: their temporaries are in place before the trees above them are compared,
// so trees that were equal stay equal.
void SubexprRule::MakeTemporaries(Work& work) {
  work.list = NewCall(fnList);
  size_t start = 0;
  for (size_t k = 1; k < work.ends.size(); ++k) {
    const size_t end = work.ends[k - 1];
    HeapSortNodes(work.nodes.data() + start, static_cast<int32_t>(end - start));
    for (size_t head = start; head < end;) {
      size_t runEnd = head + 1;
      while (runEnd < end && NodeOrder(work.nodes[runEnd], work.nodes[head]) == 0) ++runEnd;
      if (runEnd - head > 1) ShareRun(work, head, runEnd);
      head = runEnd;
    }
    start = end;
  }
}

// The first tree of the run moves to the list; every tree of the run leaves a #Tt in its place.
void SubexprRule::ShareRun(Work& work, size_t from, size_t to) {
  ENode* head = work.nodes[from];
  head->SwapPlaces(new WildcardENode(work.temporaries, 'T'));
  work.list->AppendChild(head);
  for (size_t i = from + 1; i < to; ++i) {
    ENode* copy = work.nodes[i];
    copy->SwapPlaces(new WildcardENode(work.temporaries, 'T'));
    copy->DestroyTree();
  }
  ++work.temporaries;
}

// Records one use of each temporary met in root's subtree; a second use stores the @subexpr
// node, the mark for more than one.
void SubexprRule::CountUses(Work& work, ENode* root) {
  for (ENode* n = root; n != nullptr; n = NextInPreorder(n, root)) {
    if (!IsTemporary(n, work.temporaries)) continue;
    ENode*& use = work.uses[static_cast<size_t>(static_cast<WildcardENode*>(n)->index)];
    use = use == nullptr ? n : work.call;
  }
}

// From the last temporary to the first: every possible user of temporary i has been walked
// when i is reached, since a temporary refers only to lower numbers. A single use takes the
// subtree back in place of its wildcard.
void SubexprRule::FoldSingleUses(Work& work) {
  const int32_t count = work.temporaries;
  work.uses.assign(static_cast<size_t>(count), nullptr);
  CountUses(work, work.x);
  std::vector<bool> folded(static_cast<size_t>(count), false);
  ENode* entry = work.list->lastChild;
  for (int32_t i = count - 1; i >= 0; --i) {
    ENode* before = entry->prev;
    CountUses(work, entry);
    ENode* use = work.uses[static_cast<size_t>(i)];
    if (use != nullptr && use != work.call) {
      entry->SwapPlaces(use);
      use->DestroyTree();
      folded[static_cast<size_t>(i)] = true;
    }
    entry = before;
  }
  if (std::find(folded.begin(), folded.end(), true) != folded.end()) Renumber(work, folded);
}

// Survivors keep their order and take the numbers from 0.
void SubexprRule::Renumber(Work& work, const std::vector<bool>& folded) {
  std::vector<int32_t> map(folded.size());
  int32_t next = 0;
  for (size_t i = 0; i < folded.size(); ++i) map[i] = folded[i] ? -1 : next++;
  for (ENode* root : {work.x, work.list})
    for (ENode* n = root; n != nullptr; n = NextInPreorder(n, root))
      if (IsTemporary(n, work.temporaries)) {
        auto* w = static_cast<WildcardENode*>(n);
        w->index = map[static_cast<size_t>(w->index)];
      }
  work.temporaries = next;
}

ENode* SubexprRule::BuildResult(Work& work) {
  work.x->Unlink();
  ENode* result = work.x;
  if (work.list->childCount == 0) {
    work.list->DestroyTree();
  } else {
    result = NewCall(fnSublist);
    result->AppendChild(work.list);
    result->AppendChild(work.x);
    work.list->flags |= FlagSettled;
  }
  return ReplaceNode(work.call, result);
}

// Each symbol becomes #S of its record, in the order of the walk; the records are then ranked
// and every slot takes its record's rank.
ENode* SubexprRule::NumberSymbols(ENode* root) {
  std::vector<ENode*> symbols;
  for (ENode* n = root; n != nullptr; n = NextInPreorder(n, root))
    if (n->GetType() == SymbolType && n->childCount == 0) symbols.push_back(n);
  if (symbols.empty()) return root;
  SymbolSet set;
  std::vector<WildcardENode*> slots;
  slots.reserve(symbols.size());
  for (ENode* symbol : symbols) {
    auto* slot = new WildcardENode(set.Insert(*static_cast<SymbolENode*>(symbol)), 'S');
    if (symbol == root) root = slot;
    ReplaceNode(symbol, slot);
    slots.push_back(slot);
  }
  const std::vector<int32_t> rank = set.SortByKind();
  for (WildcardENode* slot : slots) slot->index = rank[static_cast<size_t>(slot->index)];
  return root;
}

}  // namespace quillon
