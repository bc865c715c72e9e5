// Helpers for tests through the C interface: parse to a structural dump or an error message.
#pragma once

#include <string>

#include "api/handle.h"
#include "quillon.h"
#include "support/test_trees.h"

namespace quillon::testing {

// The tree of e in function form (f(a,1)), or the message of an error root.
inline std::string Structure(mathexpr* e) {
  const ENode* root = RootOf(e);
  if (root->GetType() == ErrorType) return root->Print().c_str();
  return Dump(root);
}

// The text mathexpr_as_text gives for e, however long.
inline std::string Text(mathexpr* e) {
  int32_t length = 0;
  mathexpr_as_text(e, nullptr, 0, &length, 0);
  std::string text(static_cast<size_t>(length), '\0');
  mathexpr_as_text(e, text.data(), length, nullptr, 0);
  return text;
}

// Parses text with table and gives its structure; the expression is destroyed.
inline std::string ParseStructure(mathsymtable* table, const char* text, uint32_t flags = 0) {
  mathexpr* e = mathexpr_create_ex(table, text, flags);
  std::string result = Structure(e);
  mathexpr_destroy(e);
  return result;
}

}  // namespace quillon::testing
