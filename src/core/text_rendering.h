// Text rendering: a tree printed back as text of the language that the parser reads, with as
// few parentheses as the operators' priorities and associativity allow.
#pragma once

#include "core/enode.h"
#include "shared/shared_text.h"

namespace quillon {

// The text of the tree under root (borrowed). With spaced, operators at the outer level of each
// argument and along chains of one priority get a blank on each side, and commas one after.
SharedText RenderText(const ENode* root, bool spaced);

}  // namespace quillon
