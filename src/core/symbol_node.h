// SymbolRef, a reference to a symbol with two indices, and SymbolENode, the node that holds
// one. index1 of a series is its lag (x(-1) has -1); of a matrix element it is the row.
#pragma once

#include "core/enode.h"
#include "core/symbol_def.h"

namespace quillon {

struct SymbolRef {
  SymbolRef(SymbolDef* def, int32_t index1, int32_t index2) : def(def), index1(index1), index2(index2) {
    ComputeHash();
  }
  // Must follow every change of index1.
  void ComputeHash();

  SymbolDef* def;
  int32_t index1;
  int32_t index2;  // -1 when absent
  uint32_t hash;
};

// Order of symbols in sorted trees: by name; series by index1 newest first; others by index2
// then index1.
int SymbolCompare(const SymbolRef& a, const SymbolRef& b);
// Order in symbol lists: by class (4, 32, 2, 8, 16, 1), then SymbolCompare.
int SymbolListCompare(const SymbolRef& a, const SymbolRef& b);

class SymbolENode final : public ENode, public SymbolRef {
 public:
  SymbolENode(SymbolDef* def, int32_t index1, int32_t index2, uint32_t initialFlags = 0)
      : ENode(initialFlags), SymbolRef(def, index1, index2) {}

  uint32_t GetType() const override { return SymbolType; }
  uint32_t Hash() const override { return hash; }
  ENode* CloneNode() const override { return new SymbolENode(def, index1, index2); }
  SharedText Print() const override;
  bool IsEqual(const ENode& other) const override;
  int Compare(const ENode& other) const override;
};

// Marks, in the subtree of root, each symbol that stands in symbols (same def and indices; for
// a lagged class the same def is enough) and each function node with a marked child:
// flags = (flags & mask) | bits. Returns whether anything was marked.
bool MarkSymbolUsers(ENode* root, const SymbolRef* symbols, int32_t count, uint32_t bits, uint32_t mask);

}  // namespace quillon
