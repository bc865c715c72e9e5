// Rule: the abstract base of every rewrite rule. A FunctionDef owns the rules attached to it;
// the driver tries them in the order of attachment.
#pragma once

#include <cstdint>

namespace quillon {

class ENode;

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
