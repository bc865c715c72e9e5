// @expandtime through expression text: the whole expression, or only the parts that touch the
// symbols named.
#include <gtest/gtest.h>

#include "timeseries/series_test.h"

namespace quillon::testing {
namespace {

using ExpandTimeRule = SeriesTest;

TEST_F(ExpandTimeRule, WritesOutWhatTouchesTheNamedSymbols) {
  static const TextRow rows[] = {
      {"@expandtime(d(x) + d(y))", "x-x(-1)+y-y(-1)"},
      {"@expandtime(d(x) + d(y), x)", "x-x(-1)+d(y)"},
      {"@expandtime(d(x) + d(y), y(-3))", "y-y(-1)+d(x)"},
      {"@expandtime(d(x(-2)), x)", "x(-2)-x(-3)"},
      {"@expandtime(d(x) + d(y) + @movsum(z, 2), {x, z})", "x-x(-1)+z+z(-1)+d(y)"},
      {"@expandtime(d(x) + @pch(p), p)", "d(x)"},
      // Nothing named: the call goes, and nothing is written out.
      {"@expandtime(d(x), 3)", "d(x)"},
      {"@expandtime(d(x), {})", "d(x)"},
      {"@expandtime(x)", "x"},
      {"@expandtime(d(x), x, y)", "@expandtime(d(x),x,y)"},
      {"@expandtime()", "@expandtime()"},
  };
  ExpectTexts(rows, kShow);
}

}  // namespace
}  // namespace quillon::testing
