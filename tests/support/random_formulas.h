// Random formulas for property tests: texts over a few symbols (x, y and z unless told) whose value is defined at positive
// points; tree_value.h evaluates the trees the parser and the rules make of them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "support/tree_value.h"

namespace quillon::testing {

// The draws every formula generator makes; each writes its own grammar on them.
class RandomText {
 protected:
  explicit RandomText(uint32_t seed) : random_(seed) {}

  uint32_t Pick(uint32_t n) { return random_() % n; }
  // -3 to 3 without 0, the negative ones in parentheses.
  std::string Exponent() {
    const int e = static_cast<int>(Pick(6)) - 2;
    return e <= 0 ? "(" + std::to_string(e - 1) + ")" : std::to_string(e);
  }

 private:
  std::mt19937 random_;
};

class ExpressionGenerator : public RandomText {
 public:
  explicit ExpressionGenerator(uint32_t seed, std::vector<std::string> variables = {"x", "y", "z"})
      : RandomText(seed), variables_(std::move(variables)) {}

  // Any expression: positive or not.
  std::string Any(int depth) {
    if (depth <= 0) return Leaf();
    switch (Pick(7)) {
      case 0: return "(" + Any(depth - 1) + " + " + Any(depth - 1) + ")";
      case 1: return "(" + Any(depth - 1) + " - " + Any(depth - 1) + ")";
      case 2: return "(" + Any(depth - 1) + " * " + Any(depth - 1) + ")";
      case 3: return "(" + Any(depth - 1) + " / " + Positive(depth - 1) + ")";
      case 4: return "(" + Positive(depth - 1) + ")^" + Exponent();
      case 5: return "log(" + Positive(depth - 1) + ")";
      default: return "-" + Any(depth - 1);
    }
  }

  // Positive at every positive point.
  std::string Positive(int depth) {
    if (depth <= 0) return Pick(3) == 0 ? std::to_string(1 + Pick(5)) : Variable();
    switch (Pick(5)) {
      case 0: return "(" + Positive(depth - 1) + " + " + Positive(depth - 1) + ")";
      case 1: return "(" + Positive(depth - 1) + " * " + Positive(depth - 1) + ")";
      case 2: return "(" + Positive(depth - 1) + " / " + Positive(depth - 1) + ")";
      case 3: return "exp(" + Small(depth - 1) + ")";
      default: return "(" + Positive(depth - 1) + ")^" + Exponent();
    }
  }

 private:
  // Of moderate size, for exp.
  std::string Small(int depth) { return depth <= 0 || Pick(2) == 0 ? Leaf() : "log(" + Positive(depth - 1) + ")"; }
  std::string Leaf() {
    switch (Pick(4)) {
      case 0: return std::to_string(static_cast<int>(Pick(9)) - 4);
      case 1: return std::to_string(1 + Pick(3)) + "/" + std::to_string(2 + Pick(3));
      default: return Variable();
    }
  }
  std::string Variable() { return variables_[Pick(static_cast<uint32_t>(variables_.size()))]; }

  std::vector<std::string> variables_;
};

}  // namespace quillon::testing
