// The interactive session of the quillon program, with line editing where GNU readline is built in.
#pragma once

#include "evaluator.h"

// Runs until Ctrl-D, :quit, quit or exit; returns the exit status (0).
int RunSession(Evaluator& evaluator);
