// @movsum, @movav and the percent changes through expression text: the writing out of the forms
// with an integer order, and the forms that stay.
#include <gtest/gtest.h>

#include "timeseries/series_test.h"

namespace quillon::testing {
namespace {

using MovingRules = SeriesTest;

TEST_F(MovingRules, WrittenOutWithTrailingWindowsAndLaggedValues) {
  static const StructureRow rows[] = {
      {"@movsum(x, 3)", kTimeExpand, "@plus(x,@times(1,x(-1)),@times(1,x(-2)))"},
      {"@movav(x, 2)", kTimeExpand, "@times(@plus(x,@times(1,x(-1))),@pow(2,-1))"},
      {"@movav(2*y, 2)", kTimeExpand, "@times(@plus(@times(2,y),@times(1,@times(2,y(-1)))),@pow(2,-1))"},
      {"@pch(x)", kTimeExpand, "@times(@plus(x,@times(-1,x(-1))),@pow(x(-1),-1))"},
      {"@pchy(x, 4)", kTimeExpand, "@times(@plus(x,@times(-1,x(-4))),@pow(x(-4),-1))"},
      {"@pcha(x, 4)", kTimeExpand, "@pow(@times(@plus(x,@times(-1,x(-1))),@pow(x(-1),-1)),4)"},
      {"@movsum(x, 1)", kTimeExpand, "@plus(x)"},
  };
  ExpectStructures(rows);
}

TEST_F(MovingRules, FormsWithoutARuleStayInEveryMode) {
  static const TextRow rows[] = {
      {"@expandtime(@movsum(x, 0))", "@movsum(x,0)"},
      {"@expandtime(@movsum(x, -2))", "@movsum(x,-2)"},
      {"@expandtime(@movav(x, y))", "@movav(x,y)"},
      {"@expandtime(@pch(x, 4))", "@pch(x,4)"},
      {"@expandtime(@pchy(x))", "@pchy(x)"},
      {"@expandtime(@pcha(x))", "@pcha(x)"},
      {"@expandtime(@msum(x, 3))", "@msum(x,3)"},
      {"@expandtime(@mav(x, 3))", "@mav(x,3)"},
      {"@pca(x, 4)", "@pca(x,4)"},
      {"@pc(x)", "@pc(x)"},
      {"@expandtime(@movsum(x, 1))", "x"},
      {"@expandtime(@pch(p))", "0"},
      {"@expandtime(@pc(x))", "100*(x-x(-1))/x(-1)"},
  };
  ExpectTexts(rows, kShow);
}

TEST_F(MovingRules, DerivativesGoThroughTheWrittenOutForms) {
  static const TextRow rows[] = {
      {"@deriv(@movav(x, 2), x)", "(1/2)"},
      {"@deriv(@movsum(x, 3), x(-2))", "1"},
      {"@deriv(@pch(x), x)", "1/x(-1)"},
      {"@deriv(@pc(x), x)", "100/x(-1)"},
      {"@deriv(@movsum(x, q), x)", "@movsum[1,0](x,q)"},
  };
  ExpectTexts(rows, kShow);
}

}  // namespace
}  // namespace quillon::testing
