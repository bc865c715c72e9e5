// The list behind --functions and Tab completion, written at build time from the catalogue.
#include "function_list.h"

#include <cstdint>
#include <cstdio>
#include <strings.h>

namespace {

struct FunctionEntry {
  const char* name;
  const char* operatorSpelling;  // the token of an operator, else empty
  int32_t arguments;             // -1 where the count is not fixed
  const char* aliasOf;           // the spelling this one stands for, else empty
};

const FunctionEntry kFunctions[] = {
#include "function_list.inc"
};

}  // namespace

int ListFunctions(const std::string& prefix) {
  int shown = 0;
  for (const FunctionEntry& f : kFunctions) {
    if (strncasecmp(f.name, prefix.c_str(), prefix.size()) != 0) continue;
    const std::string arguments = f.arguments < 0 ? "-" : std::to_string(f.arguments);
    std::string note;
    if (f.operatorSpelling[0] != 0) note = std::string("operator ") + f.operatorSpelling;
    if (f.aliasOf[0] != 0) note = std::string("same as ") + f.aliasOf;
    std::printf("%-20s %-3s %s\n", f.name, arguments.c_str(), note.c_str());
    ++shown;
  }
  return shown > 0 ? 0 : 1;
}

const char* FunctionSpelling(size_t index) {
  return index < sizeof kFunctions / sizeof kFunctions[0] ? kFunctions[index].name : nullptr;
}
