// @lag through expression text: shifts of series only, aggregates left whole, lists of lags.
#include <gtest/gtest.h>

#include "timeseries/series_test.h"

namespace quillon::testing {
namespace {

using LagRules = SeriesTest;

TEST_F(LagRules, LagRule1ShiftsSeriesSymbolsOnly) {
  static const StructureRow rows[] = {
      {"@lag(x, 1)", kSimplify, "x(-1)"},
      {"@lag(x(2), 3)", kSimplify, "x(-1)"},
      {"@lag(x, -2)", kSimplify, "x(2)"},
      {"@lag(x, 0)", kSimplify, "x"},
      {"@lag(2, 1)", kSimplify, "2"},
      {"@lag(p, 1)", kSimplify, "p"},
      {"@lag(x + y(1), 1)", kSimplify, "@plus(x(-1),y)"},
      {"@lag(@sum(x), 1)", kSimplify, "@sum(x)"},
      {"@lag(@mean(x) + x, 1)", kSimplify, "@plus(x(-1),@mean(x))"},
      // Near misses: a lag that is not an integer literal stays.
      {"@lag(x, y)", kSimplify, "@lag(x,y)"},
      {"@lag(x, 1.5)", kSimplify, "@lag(x,1.5)"},
      {"@lag(x)", kSimplify, "@lag(x)"},
  };
  ExpectStructures(rows);
}

TEST_F(LagRules, LagRule2DistributesAListOfLagsOnlyWhenExpanding) {
  static const StructureRow rows[] = {
      {"@lag(x, @list(1, 2))", kSimplify, "@lag(x,@list(1,2))"},
      {"@expandtime(@lag(x, @list(1, 2)))", kSimplify, "@list(x(-1),x(-2))"},
      {"@expandtime(@lag(x, @list()))", kSimplify, "@list()"},
  };
  ExpectStructures(rows);
}

}  // namespace
}  // namespace quillon::testing
