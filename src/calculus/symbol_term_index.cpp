// SymbolTermIndex; see symbol_term_index.h. Terms are walked by the links, so a term of any
// depth is safe.
#include "calculus/symbol_term_index.h"

#include <algorithm>
#include <iterator>

#include "core/node_order.h"
#include "core/tree_walk.h"

namespace quillon {
namespace {

// Appends position unless it is already the last entry: a term that names a symbol twice is
// listed once.
void AddOnce(std::vector<int32_t>& positions, int32_t position) {
  if (positions.empty() || positions.back() != position) positions.push_back(position);
}

// The bucket of symbol in buckets (const or not), or null.
template <class Buckets>
auto* FindBucket(Buckets& buckets, const ENode* symbol) {
  auto [from, to] = buckets.equal_range(symbol->Hash());
  for (auto it = from; it != to; ++it)
    if (NodeEqual(it->second.symbol, symbol)) return &it->second;
  return static_cast<decltype(&from->second)>(nullptr);
}

}  // namespace

SymbolTermIndex::SymbolTermIndex(const ENode* sum) {
  terms_.reserve(static_cast<size_t>(sum->childCount));
  for (const ENode* term : Children(sum)) {
    AddTerm(term, static_cast<int32_t>(terms_.size()));
    terms_.push_back(term);
  }
}

void SymbolTermIndex::AddTerm(const ENode* term, int32_t position) {
  for (const ENode* n = term; n != nullptr; n = NextInPreorder(n, term)) {
    const uint32_t type = n->GetType();
    if (type == WildcardType) AddOnce(wildcardTerms_, position);
    if (type == SymbolType) AddOnce(TermsOf(n), position);
  }
}

std::vector<int32_t>& SymbolTermIndex::TermsOf(const ENode* symbol) {
  if (Bucket* found = FindBucket(buckets_, symbol)) return found->terms;
  return buckets_.emplace(symbol->Hash(), Bucket{symbol, {}})->second.terms;
}

std::vector<const ENode*> SymbolTermIndex::DependentTerms(const ENode* v) const {
  std::vector<int32_t> positions = wildcardTerms_;
  if (const Bucket* bucket = FindBucket(buckets_, v)) {
    positions.clear();
    std::set_union(bucket->terms.begin(), bucket->terms.end(), wildcardTerms_.begin(), wildcardTerms_.end(),
                   std::back_inserter(positions));
  }
  std::vector<const ENode*> result;
  result.reserve(positions.size());
  for (int32_t position : positions) result.push_back(terms_[static_cast<size_t>(position)]);
  return result;
}

}  // namespace quillon
