// The numeric mode of the quillon program: expressions computed through the batch evaluator at
// one point (--at) or over the rows of a table (--csv), and the prepared form (--subexpr).
#pragma once

#include <string>
#include <vector>

#include "quillon.h"

struct NumericOptions {
  std::string at;       // "x=1.5,y=2"
  std::string csvFile;  // a header line of names, then one row of numbers per line
  bool subexpr = false;
  bool Active() const { return !at.empty() || !csvFile.empty() || subexpr; }
};

// Takes argv[i] (and its value, moving i on) when it is a numeric option. bad is set when the
// option needs a value that is missing.
bool TakeNumericOption(int argc, char** argv, int& i, NumericOptions& options, bool& bad);

// Runs the expressions in numeric mode with symbols from table; returns the exit status: 0, or
// 1 when an expression, a value or the table fails (the reason goes to standard error).
int RunNumeric(const NumericOptions& options, mathsymtable* table, uint32_t mode,
               const std::vector<std::string>& expressions);
