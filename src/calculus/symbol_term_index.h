// SymbolTermIndex: for the terms of a sum, which terms hold each symbol. A gradient builds it
// once, so that the terms depending on each variable cost what they are, not the sum's length.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "core/enode.h"

namespace quillon {

class SymbolTermIndex {
 public:
  // Indexes the children of sum (borrowed), which must outlive the index and stay unchanged.
  explicit SymbolTermIndex(const ENode* sum);

  // The terms t of the sum for which DependsOn(t, v) holds, v a symbol (borrowed), in the
  // order of the sum: those that hold a symbol equal to v, and those that hold a wildcard.
  std::vector<const ENode*> DependentTerms(const ENode* v) const;

 private:
  struct Bucket {
    const ENode* symbol;          // the first occurrence, for NodeEqual
    std::vector<int32_t> terms;   // positions, ascending, each once
  };

  void AddTerm(const ENode* term, int32_t position);
  std::vector<int32_t>& TermsOf(const ENode* symbol);

  std::vector<const ENode*> terms_;
  std::unordered_multimap<uint32_t, Bucket> buckets_;  // by symbol hash
  std::vector<int32_t> wildcardTerms_;
};

}  // namespace quillon
