// SymbolSet: the symbols of a compiled expression, numbered in order of insertion and then
// ranked by kind and name, so that input slot i is always the same symbol for the same formula.
#pragma once

#include <cstdint>
#include <vector>

#include "core/symbol_node.h"

namespace quillon {

class SymbolSet {
 public:
  SymbolSet();

  // The record number of symbol, appended when the set does not hold it yet.
  int32_t Insert(const SymbolRef& symbol);
  int32_t Count() const { return count_; }
  const SymbolRef& At(int32_t record) const { return records_[static_cast<size_t>(record)]; }

  // Sorts the records by kind (4, 32, 2, 8, 16, 1), name and indices, and returns for each old
  // record number its rank, which is now its record number.
  std::vector<int32_t> SortByKind();

 private:
  // Bucket of symbol: the one holding its record, or the empty one where it would go.
  size_t FindBucket(const SymbolRef& symbol) const;
  // Rebuilds the hash index with enough buckets for wanted records.
  void Rehash(int32_t wanted);

  int32_t count_ = 0;
  std::vector<SymbolRef> records_;
  std::vector<int32_t> buckets_;  // record number, or -1 for an empty bucket
};

}  // namespace quillon
