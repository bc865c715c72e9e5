// Rule: the abstract base of every rewrite rule. A FunctionDef owns the rules attached to it;
// the driver tries them in the order of attachment.
#pragma once

#include <cstdint>

namespace quillon {

class ENode;

// Modes of a rewrite. The bits below 0x10000 are modes of a whole pass; the bits from 0x10000 up
// may also stand in the high half of one node's flags, and then count for that node alone.
enum RewriteMode : uint32_t {
  ModeSimplify = 0x1,
  ModeCanonical = 0x2,
  ModeDisplay = 0x4,
  ModeNumeric = 0x10000,     // with ModeSimplify: rationals become reals
  ModeExpand = 0x20000,      // products and powers distribute
  ModeFactor = 0x40000,      // sums factor
  ModeTimeExpand = 0x80000,  // lags and differences become plain lagged forms
  ModeFlatten = 0x100000,    // the driver's flattening alone
};

// Result contract of Apply, the same for every rule:
//  - *node is the function node the rule is attached to; its children are settled or held.
//  - 0: the rule did not apply, or (a few rules) replaced the node and wants the walk of the
//    rule list to go on with the next rule on the new node.
//  - not 0: the tree changed. *node holds whatever now stands in the node's place; every node
//    made or changed that must be looked at again has FlagSettled off.
// The tree owns every node it holds; a rule that detaches a node frees it or relinks it.
class Rule {
 public:
  explicit Rule(uint32_t mode) : mode(mode) {}
  virtual ~Rule() = default;
  Rule(const Rule&) = delete;
  Rule& operator=(const Rule&) = delete;

  virtual uint32_t Apply(ENode** node) = 0;

  Rule* next = nullptr;  // next rule of the same function, in attempt order
  uint32_t mode;         // RewriteMode bits in which the rule is tried
};

}  // namespace quillon
