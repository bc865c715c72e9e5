// Batch runs of the quillon program. A failed or blank line still prints an (empty) line, so a
// script can paste input and output side by side; messages go to standard error.
#include "batch.h"

#include <cstdio>
#include <iostream>

namespace {

bool IsBlank(const std::string& line) { return line.find_first_not_of(" \t\r") == std::string::npos; }

// Prints one result line; where is the prefix of a message ("line 3: "), empty for arguments.
bool Print(const Outcome& outcome, const std::string& where) {
  if (!outcome.ok) std::fprintf(stderr, "%s%s\n", where.c_str(), outcome.text.c_str());
  std::printf("%s\n", outcome.ok ? outcome.text.c_str() : "");
  std::fflush(stdout);
  return outcome.ok;
}

}  // namespace

int RunExpressions(const Evaluator& evaluator, const std::vector<std::string>& expressions) {
  int status = 0;
  for (const std::string& text : expressions)
    if (!Print(evaluator.Run(text), "")) status = 1;
  return status;
}

int RunLines(const Evaluator& evaluator) {
  int status = 0;
  std::string line;
  for (long number = 1; std::getline(std::cin, line); ++number) {
    if (IsBlank(line)) {
      std::printf("\n");
      continue;
    }
    if (!Print(evaluator.Run(line), "line " + std::to_string(number) + ": ")) status = 1;
  }
  return status;
}
