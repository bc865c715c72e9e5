// The options of the quillon program as people type them: parsed from the command line into one
// record, with the help and usage texts that describe them.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "numeric_mode.h"

struct Options {
  uint32_t mode = 3;
  bool raw = false;
  bool spaced = false;
  bool readStdin = false;
  bool listFunctions = false;
  std::string functionPrefix;
  std::vector<std::pair<std::string, int32_t>> declared;
  std::vector<std::string> expressions;
  NumericOptions numeric;
};

// What the command line asks for: to run, to stop with a status (help and version printed,
// or a bad option named on standard error).
struct ParseOutcome {
  bool run = true;
  int status = 0;
};

ParseOutcome ParseArguments(int argc, char** argv, Options& options);
