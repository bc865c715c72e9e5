// @subexpr through the exports: the shape of the prepared form, sharing by height, folding and
// renumbering of single uses, and the ranking of input slots by kind, name and indices.
#include <gtest/gtest.h>

#include <string>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

using Subexpr = ExpressionTest;

TEST_F(Subexpr, SharesRepeatedFunctionTreesOnly) {
  const StructureRow rows[] = {
      {"@subexpr(x)", 3, "#S0", WildcardType},
      {"@subexpr(x*y + log(z))", 3, "@plus(@times(#S0,#S1),log(#S2))"},
      {"@subexpr(@pow(@plus(a,b),2) + log(@plus(a,b)))", 3,
       "@sublist(@list(@plus(#S0,#S1)),@plus(@pow(#T0,2),log(#T0)))"},
      // @cos(a) is shared first, then @sin(#T0); #T0 is left with one use inside #T1 and folds back.
      {"@subexpr(@pmax(@sin(@cos(a)), @sin(@cos(a))))", 3, "@sublist(@list(@sin(@cos(#S0))),@pmax(#T0,#T0))"},
      // Three copies: one temporary, three references.
      {"@subexpr(@pmax(exp(a), exp(a), exp(a)))", 3, "@sublist(@list(exp(#S0)),@pmax(#T0,#T0,#T0))"},
      // Equal constants and symbols are never temporaries.
      {"@subexpr(@pmax(a, a, 2.5, 2.5))", 3, "@pmax(#S0,#S0,2.5,2.5)"},
      // Numbering follows height, then node order within a height, not the order of appearance.
      {"@subexpr(@pmax(exp(log(b)), exp(log(b)), log(a), log(a)))", 3,
       "@sublist(@list(log(#S0),exp(log(#S1))),@pmax(#T1,#T1,#T0,#T0))"},
      {"@subexpr()", 3, "@subexpr()"},
      {"@subexpr(a, b)", 3, "@subexpr(a,b)"},
      {"@subexpr(2 + 3)", 3, "5"},
  };
  ExpectStructures(rows);
}

TEST_F(Subexpr, SlotsRankByKindThenNameThenIndices) {
  mathsymtable_add(table, "s", 15);   // kind 4, lags newest first
  mathsymtable_add(table, "v", 1);    // kind 32
  mathsymtable_add(table, "q", 43);   // kind 2
  mathsymtable_add(table, "m", 40);   // kind 8, by second index, then first
  mathsymtable_add(table, "k", 38);   // kind 16
  mathsymtable_add(table, "u", 199);  // kind 1 comes last, with the names added on the fly
  const StructureRow rows[] = {
      {"@subexpr(@pmax(u, k, m(2,1), m(1,2), s(-2), s, B, a, q(3), v))", 1,
       "@pmax(#S9,#S6,#S4,#S5,#S1,#S0,#S8,#S7,#S3,#S2)"},
  };
  ExpectStructures(rows);
}

// Taller than the first bucket array: the heights are counted again, and the chain of single
// uses folds back into one temporary.
TEST_F(Subexpr, ATallRepeatedChainFoldsIntoOneTemporary) {
  std::string chain = "a";
  for (int i = 0; i < 30; ++i) chain = "exp(" + chain + ")";
  const std::string text = "@subexpr(@pmax(" + chain + ", " + chain + "))";
  std::string expected = "#S0";
  for (int i = 0; i < 30; ++i) expected = "exp(" + expected + ")";
  EXPECT_EQ(Evaluated(text.c_str(), 1), "@sublist(@list(" + expected + "),@pmax(#T0,#T0))");
}

}  // namespace
}  // namespace quillon::testing
