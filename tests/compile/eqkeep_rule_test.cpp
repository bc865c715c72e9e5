// Cutting equation lists down with @eqkeep, through expression text.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

class EqKeepRule : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    mathsymtable_add(table, "m", 40);
  }
};

TEST_F(EqKeepRule, KeepsEquationsThatDependDirectlyOrThroughOthers) {
  const TextRow rows[] = {
      {"@eqkeep(@list(a=b+c, b=w, v=u), w)", "{a=b+c,b=w}"},
      {"@eqkeep(@list(a=b+c, b=w, v=u), @list(u, c))", "{a=b+c,v=u}"},
      {"@eqkeep(@list(a=b), @list())", "{}"},
      {"@eqkeep(a=b, b)", "a=b"},
  };
  ExpectTexts(rows, 3);
}

// A member met again on its own path answers no there, so the order of the list decides.
TEST_F(EqKeepRule, CyclesDependOnTheOrder) {
  const TextRow rows[] = {
      {"@eqkeep(@list(a=b+z, b=a, c=a), z)", "{a=b+z,c=a}"},
      {"@eqkeep(@list(b=a, a=b+z, c=a), z)", "{b=a,a=b+z,c=a}"},
      {"@eqkeep(@list(a=b, b=a), z)", "{}"},
  };
  ExpectTexts(rows, 3);
}

TEST_F(EqKeepRule, ASingleDroppedEquationLosesItsLeftSide) {
  const StructureRow rows[] = {{"@eqkeep(a=b, c)", 3, "@eq(b)"}};
  ExpectStructures(rows);
}

TEST_F(EqKeepRule, RejectsBadEquationsAndSymbols) {
  const TextRow rows[] = {
      {"@eqkeep(@list(a=b, m(1,2)=c), b)", "<\"@eqkeep syntax invalid\">"},
      {"@eqkeep(@list(a=b, 3), b)", "<\"@eqkeep syntax invalid\">"},
      {"@eqkeep(@list(a=b), @list(b, 2))", "<\"@eqkeep syntax invalid\">"},
      {"@eqkeep(a, b)", "<\"@eqkeep syntax invalid\">"},
  };
  ExpectTexts(rows, 3);
}

}  // namespace
}  // namespace quillon::testing
