// d and dlog through expression text: the stored shape, the display forms read back, and the
// writing out in plain lags, alone and under differentiation.
#include <gtest/gtest.h>

#include <string>

#include "timeseries/series_test.h"

namespace quillon::testing {
namespace {

using DifferenceRules = SeriesTest;

TEST_F(DifferenceRules, StoredShapeHasAnOrderAndMergesNesting) {
  static const StructureRow rows[] = {
      {"d(x)", kSimplify, "d(x,1)"},
      {"d(x, 0)", kSimplify, "x"},
      {"d(x, 0, 0)", kSimplify, "x"},
      {"d(x, 0, 1)", kSimplify, "d(x,1)"},
      {"d(x, 0, 4)", kSimplify, "d(x,0,4)"},
      {"d(d(d(x)))", kSimplify, "d(x,3)"},
      {"d(d(x, 1, 4), 1, 12)", kSimplify, "d(x,2,4,12)"},
      {"dlog(x)", kSimplify, "d(log(x),1)"},
      {"@dlog(x, 1, 4)", kSimplify, "d(log(x),1,4)"},
      // Orders that are not integer literals are kept as written.
      {"d(x, y)", kSimplify, "d(x,y)"},
      {"d(x, 1.5)", kSimplify, "d(x,1.5)"},
      {"d(x, 2, 3.5)", kSimplify, "d(x,2,3.5)"},
  };
  ExpectStructures(rows);
}

TEST_F(DifferenceRules, DisplayFormsReadBackToTheStoredShape) {
  static const TextRow rows[] = {
      {"d(x, 0, 1)", "d(x)"},
      {"d(log(x))", "dlog(x)"},
      {"dlog(x, 2)", "dlog(x,2)"},
      {"dlog(x, 1, 4)", "dlog(x,1,4)"},
      {"d(x, 1, 4, 12)", "d(d(x,0,12),1,4)"},
      {"d(x, 1, 4, 12, 52)", "d(d(d(x,0,52),0,12),1,4)"},
      {"dlog(x, 1, 4, 12)", "d(dlog(x,0,12),1,4)"},
  };
  ExpectTexts(rows, kShow);
  // Read back, the seasonal lags may come in another order: the same difference written out.
  for (const TextRow& row : rows) {
    const std::string shown = "@expandtime(" + EvaluatedText(row.text, kShow) + ")";
    const std::string written = "@expandtime(" + std::string(row.text) + ")";
    EXPECT_EQ(Evaluated(shown.c_str(), kSimplify), Evaluated(written.c_str(), kSimplify)) << row.text;
  }
}

TEST_F(DifferenceRules, DifferenceRule7WritesOutBinomialAndSeasonalDifferences) {
  static const StructureRow rows[] = {
      {"d(x, 1)", kTimeExpand, "@plus(x,@times(-1,x(-1)))"},
      {"d(x, 2)", kTimeExpand, "@plus(x,@times(-2,x(-1)),@times(1,x(-2)))"},
      {"d(x, 3)", kTimeExpand, "@plus(x,@times(-3,x(-1)),@times(3,x(-2)),@times(-1,x(-3)))"},
      {"d(x, 0, 4)", kTimeExpand, "d(@plus(x,@times(-1,x(-4))),0)"},
      {"d(x, 1, 4)", kTimeExpand,
       "@plus(@plus(x,@times(-1,x(-4))),@times(-1,@plus(x(-1),@times(-1,x(-5)))))"},
      {"d(log(x), 1)", kTimeExpand, "@plus(log(x),@times(-1,log(x(-1))))"},
      {"d(p, 1)", kTimeExpand, "@plus(p,@times(-1,p))"},
      // Without an integer last argument nothing is written out; d(x) waits for its order.
      {"d(x)", kTimeExpand, "d(x)"},
      {"d(x, y)", kTimeExpand, "d(x,y)"},
      {"d(x, 2, 3.5)", kTimeExpand, "d(x,2,3.5)"},
  };
  ExpectStructures(rows);
  static const TextRow simplified[] = {
      {"@expandtime(d(x, 1, 4))", "x-x(-1)-x(-4)+x(-5)"},
      {"@expandtime(d(x, 0, 4))", "x-x(-4)"},
      {"@expandtime(dlog(x))", "log(x)-log(x(-1))"},
      {"@expandtime(d(p))", "0"},
  };
  ExpectTexts(simplified, kShow);
}

// Differentiation asks for the writing out of its arguments.
TEST_F(DifferenceRules, DerivativesGoThroughTheWrittenOutDifference) {
  static const TextRow rows[] = {
      {"@deriv(d(x), x)", "1"},
      {"@deriv(d(x), x(-1))", "-1"},
      {"@deriv(d(x, 2), x(-1))", "-2"},
      {"@deriv(d(x, 1, 4), x(-5))", "1"},
      {"@deriv(dlog(x), x)", "1/x"},
  };
  ExpectTexts(rows, kShow);
}

}  // namespace
}  // namespace quillon::testing
