// Batch runs: the expressions of the command line, and standard input one expression per line,
// with output line k belonging to input line k.
#pragma once

#include <string>
#include <vector>

#include "evaluator.h"

// Each returns the exit status: 1 if any expression failed, else 0.
int RunExpressions(const Evaluator& evaluator, const std::vector<std::string>& expressions);
int RunLines(const Evaluator& evaluator);
