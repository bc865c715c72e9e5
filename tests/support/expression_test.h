// The fixture of tests that take texts through mathexpr_create and mathexpr_evaluate: a symbol table
// that adds unknown names, and readers of what evaluation leaves, each destroying its expression.
#pragma once

#include <span>
#include <string>

#include "support/api_helpers.h"

namespace quillon::testing {

struct StructureRow {
  const char* text;
  uint32_t mode;
  const char* expected;  // structure after mathexpr_evaluate(mode)
  uint32_t type = 0;     // class of the root, checked when not 0
};

struct TextRow {
  const char* text;
  const char* expected;  // mathexpr_as_text after evaluation
};

// What evaluation left at the root.
struct EvaluatedRoot {
  std::string structure;  // as Structure gives it
  uint32_t type = 0;      // class of the root
  bool linksConsistent = false;
};

class ExpressionTest : public NoLeakTest {
 protected:
  void SetUp() override {
    NoLeakTest::SetUp();
    table = mathsymtable_create(nullptr, 1);
  }
  void TearDown() override {
    mathsymtable_destroy(table);
    NoLeakTest::TearDown();
  }

  EvaluatedRoot EvaluateRoot(const char* text, uint32_t mode) {
    mathexpr* e = mathexpr_create(table, text);
    mathexpr_evaluate(e, mode);
    const ENode* root = RootOf(e);
    EvaluatedRoot result{Structure(e), root->GetType(), LinksConsistent(root)};
    mathexpr_destroy(e);
    return result;
  }

  // The structure of text after mathexpr_evaluate(mode).
  std::string Evaluated(const char* text, uint32_t mode) { return EvaluateRoot(text, mode).structure; }

  // The text mathexpr_as_text gives after mathexpr_evaluate(mode), however long.
  std::string EvaluatedText(const char* text, uint32_t mode) {
    mathexpr* e = mathexpr_create(table, text);
    mathexpr_evaluate(e, mode);
    std::string result = Text(e);
    mathexpr_destroy(e);
    return result;
  }

  // A failure names the row's text and mode.
  void ExpectStructures(std::span<const StructureRow> rows) {
    for (const StructureRow& row : rows) {
      const EvaluatedRoot got = EvaluateRoot(row.text, row.mode);
      EXPECT_EQ(got.structure, row.expected) << row.text << " in mode " << row.mode;
      if (row.type != 0) {
        EXPECT_EQ(got.type, row.type) << row.text;
      }
    }
  }

  // Every row evaluated in mode; a failure names the row's text.
  void ExpectTexts(std::span<const TextRow> rows, uint32_t mode) {
    for (const TextRow& row : rows) EXPECT_EQ(EvaluatedText(row.text, mode), row.expected) << row.text;
  }

  mathsymtable* table = nullptr;
};

}  // namespace quillon::testing
