// SymbolSet: insertion with open addressing, growth, and the ranking of records.
#include "compile/symbol_set.h"

#include <algorithm>
#include <numeric>

namespace quillon {
namespace {

constexpr int32_t kInitialRecords = 128;
constexpr int32_t kEmptyBucket = -1;

bool SameSymbol(const SymbolRef& a, const SymbolRef& b) {
  return a.hash == b.hash && a.def == b.def && a.index1 == b.index1 && a.index2 == b.index2;
}

// At least 16 buckets; from 16 wanted on, 32 doubled until it exceeds wanted.
size_t BucketsFor(int32_t wanted) {
  if (wanted < 16) return 16;
  size_t buckets = 32;
  while (buckets <= static_cast<size_t>(wanted)) buckets *= 2;
  return buckets;
}

}  // namespace

SymbolSet::SymbolSet() {
  records_.reserve(kInitialRecords);
  Rehash(kInitialRecords);
}

size_t SymbolSet::FindBucket(const SymbolRef& symbol) const {
  const size_t mask = buckets_.size() - 1;
  size_t b = symbol.hash & mask;
  while (buckets_[b] != kEmptyBucket && !SameSymbol(records_[static_cast<size_t>(buckets_[b])], symbol))
    b = (b + 1) & mask;
  return b;
}

int32_t SymbolSet::Insert(const SymbolRef& symbol) {
  const size_t b = FindBucket(symbol);
  if (buckets_[b] != kEmptyBucket) return buckets_[b];
  if (records_.size() == records_.capacity()) records_.reserve(records_.capacity() * 2);
  records_.push_back(symbol);
  buckets_[b] = count_++;
  if (2 * static_cast<size_t>(count_) > buckets_.size()) Rehash(static_cast<int32_t>(buckets_.size()) * 2);
  return count_ - 1;
}

void SymbolSet::Rehash(int32_t wanted) {
  buckets_.assign(BucketsFor(wanted), kEmptyBucket);
  for (int32_t r = 0; r < count_; ++r) buckets_[FindBucket(records_[static_cast<size_t>(r)])] = r;
}

std::vector<int32_t> SymbolSet::SortByKind() {
  std::vector<int32_t> order(static_cast<size_t>(count_));
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [this](int32_t a, int32_t b) {
    return SymbolListCompare(records_[static_cast<size_t>(a)], records_[static_cast<size_t>(b)]) < 0;
  });
  std::vector<int32_t> rank(order.size());
  std::vector<SymbolRef> sorted;
  sorted.reserve(records_.capacity());
  for (size_t i = 0; i < order.size(); ++i) {
    rank[static_cast<size_t>(order[i])] = static_cast<int32_t>(i);
    sorted.push_back(records_[static_cast<size_t>(order[i])]);
  }
  records_ = std::move(sorted);
  Rehash(static_cast<int32_t>(buckets_.size()) / 2);
  return rank;
}

}  // namespace quillon
