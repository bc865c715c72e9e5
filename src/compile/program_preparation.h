// From a host's expression to a batch program: simplification, @subexpr and compilation.
#pragma once

#include <memory>

#include "compile/program.h"

namespace quillon {

// A program for the tree under root (borrowed, unchanged), or null when it is or becomes an
// error. A tree that already holds #S or #T slots is taken as prepared and compiled as it
// stands; its inputs are then named #S0, #S1, ...
std::unique_ptr<Program> PrepareProgram(const ENode* root);

}  // namespace quillon
