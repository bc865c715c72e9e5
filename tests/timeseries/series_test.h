// The fixture of the time-series tests: x, y and z are series (lags shift them), p and q are
// scalars (class 8, no lag), and every other name is of unknown class.
#pragma once

#include "support/expression_test.h"

namespace quillon::testing {

inline constexpr uint32_t kSimplify = 3;           // canonical, then simplify
inline constexpr uint32_t kTimeExpand = 0x80000;   // the writing out alone, nothing simplified
inline constexpr uint32_t kShow = 3 | 4;           // simplify, then display

class SeriesTest : public ExpressionTest {
 protected:
  void SetUp() override {
    ExpressionTest::SetUp();
    for (const char* name : {"x", "y", "z"}) mathsymtable_add(table, name, 15);
    for (const char* name : {"p", "q"}) mathsymtable_add(table, name, 35);
  }
};

}  // namespace quillon::testing
