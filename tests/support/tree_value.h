// A small numeric evaluator of trees for property tests: the arithmetic operators and the
// elementary functions that generated formulas and their rewritten forms use.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "core/function_node.h"
#include "core/symbol_node.h"
#include "core/well_known.h"

namespace quillon::testing {

// The value of node with each symbol read by its text (x, x(-1)) from point; a function outside the list is a
// test failure.
inline double ValueAt(const ENode* node, const std::map<std::string, double>& point) {
  switch (node->GetType()) {
    case SymbolType: return point.at(static_cast<const SymbolENode*>(node)->Print().c_str());
    case FunctionType: break;
    default: return node->GetValue();
  }
  const FunctionDef* def = DefOf(node);
  std::vector<double> args;
  for (const ENode* c : Children(node)) args.push_back(ValueAt(c, point));
  double value = def == fnTimes ? 1.0 : 0.0;
  if (def == fnPlus) for (double a : args) value += a;
  else if (def == fnTimes) for (double a : args) value *= a;
  else if (def == fnMinus) value = args[0] - args[1];
  else if (def == fnDivide) value = args[0] / args[1];
  else if (def == fnUnaryMinus) value = -args[0];
  else if (def == fnPow) value = std::pow(args[0], args[1]);
  else if (def == fnLog) value = std::log(args[0]);
  else if (def == fnExp) value = std::exp(args[0]);
  else if (def == fnSqrt) value = std::sqrt(args[0]);
  else if (def == fnSin) value = std::sin(args[0]);
  else if (def == fnCos) value = std::cos(args[0]);
  else ADD_FAILURE() << "no value for " << def->name;
  return value;
}

}  // namespace quillon::testing
