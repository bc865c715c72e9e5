// One expression text in, its printed result or its message out, over the program's symbol
// table; batch runs and the interactive session both go through it.
#pragma once

#include <cstdint>
#include <string>

#include "options.h"
#include "quillon.h"

struct Outcome {
  bool ok;
  std::string text;  // the result, or the message of the error
};

class Evaluator {
 public:
  explicit Evaluator(const Options& options);
  ~Evaluator();
  Evaluator(const Evaluator&) = delete;
  Evaluator& operator=(const Evaluator&) = delete;

  Outcome Run(const std::string& text) const;
  void SetMode(uint32_t mode) { mode_ = mode; }
  uint32_t Mode() const { return mode_; }
  // Declares each name of a comma-separated list as a series.
  void DeclareSeries(const std::string& names);
  mathsymtable* Table() const { return table_; }

 private:
  bool raw_;
  bool spaced_;
  uint32_t mode_;
  mathsymtable* table_;
};

// The printed text of e, however long.
std::string TextOf(mathexpr* e, bool spaced);
