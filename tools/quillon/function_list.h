// --functions: the functions and operators of the language, as the catalogue spells them.
#pragma once

#include <string>

// Prints every catalogued spelling that starts with prefix (without regard to case); returns
// the exit status, 1 when nothing matches.
int ListFunctions(const std::string& prefix);

// The catalogued spellings, for completion in the interactive session.
const char* FunctionSpelling(size_t index);  // null past the last
