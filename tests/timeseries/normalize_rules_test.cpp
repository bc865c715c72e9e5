// @normalize through expression text and mathexpr_normalize: each step, the choice of the
// variable, and the forms that stop short.
#include <gtest/gtest.h>

#include <string>

#include "timeseries/series_test.h"

namespace quillon::testing {
namespace {

using NormalizeRules = SeriesTest;

TEST_F(NormalizeRules, EachStepPeelsOneOperation) {
  static const TextRow rows[] = {
      // NormalizeRule1: the end, sums, products and powers.
      {"@normalize(x := 3, x)", "x:=3"},
      {"@normalize(q + x := p, x)", "x:=p-q"},
      {"@normalize(x + q := p, x)", "x:=p-q"},
      {"@normalize(q*x := p, x)", "x:=p/q"},
      {"@normalize(x*q := p, x)", "x:=p/q"},
      {"@normalize(2^x := y, x)", "x:=log(y)/log(2)"},
      {"@normalize(x^2 := y, x)", "x:=@sqrt(y)"},
      {"@normalize(x^x := y, x)", "x:=y^(1/x)"},
      // NormalizeRule2: inverses from the table, both directions, other arguments kept.
      {"@normalize(log(y) + 1 := z, y)", "y:=exp(-1+z)"},
      {"@normalize(exp(x) := y, x)", "x:=log(y)"},
      {"@normalize(@cnorm(x) := p, x)", "x:=@qnorm(p)"},
      {"@normalize(@qnorm(x) := p, x)", "x:=@cnorm(p)"},
      {"@normalize(@ctdist(x, q) := p, x)", "x:=@qtdist(p,q)"},
      {"@normalize(@qweib(x, q, 2) := p, x)", "x:=@cweib(p,q,2)"},
      // NormalizeRule3: time-series forms written out.
      {"@normalize(d(y) := z, y)", "y:=y(-1)+z"},
      {"@normalize(d(x, 0, 4) := z, x)", "x:=x(-4)+z"},
      {"@normalize(@movsum(x, 3) := z, x)", "x:=-x(-1)-x(-2)+z"},
      {"@normalize(@movav(x, 2) := z, x)", "x:=-x(-1)+2*z"},
      {"@normalize(@pch(x) := z, x)", "x:=x(-1)+x(-1)*z"},
      // NormalizeRule4: the variable only on the right.
      {"@normalize(3 := x, x)", "x:=3"},
      {"@normalize(p := 2*x, x)", "x:=(1/2)*p"},
      // The variable on both sides is carried along.
      {"@normalize(x + 1 := 2*x, x)", "x:=-1+2*x"},
  };
  ExpectTexts(rows, kShow);
}

TEST_F(NormalizeRules, FormsWithoutAStepStayUnderNormalize) {
  static const TextRow rows[] = {
      {"@normalize(p := q, z)", "@normalize(p:=q,z)"},
      {"@normalize(@sin(x) := y, x)", "@normalize(@sin(x):=y,x)"},
      {"@normalize(@cbinom(x, 2, q) := y, x)", "@normalize(@cbinom(x,2,q):=y,x)"},
      {"@normalize(@cnorm(q, x) := y, x)", "@normalize(@cnorm(q,x):=y,x)"},
      {"@normalize(@pchy(x, 4) := y, x)", "@normalize(@pchy(x,4):=y,x)"},
      {"@normalize(y = 1, y)", "@normalize(y=1,y)"},
      {"@normalize(3 := 4)", "@normalize(3:=4)"},
      {"@normalize(x := 1, 2)", "@normalize(x:=1,2)"},
  };
  ExpectTexts(rows, kShow);
}

TEST_F(NormalizeRules, NormalizeRule5ChoosesASeriesFirst) {
  static const TextRow rows[] = {
      {"@normalize(log(y) := p)", "y:=exp(p)"},
      {"@normalize(log(p) := y)", "y:=log(p)"},
      {"@normalize(log(p) := q)", "p:=exp(q)"},
  };
  ExpectTexts(rows, kShow);
}

TEST_F(NormalizeRules, ExportNormalizesCopiesOfItsArguments) {
  struct Row {
    const char* equation;
    const char* variable;
    const char* expected;
  };
  static const Row rows[] = {
      {"y := a*x + b", "x", "x:=(-b+y)/a"},
      {"d(y) := e", "y", "y:=e+y(-1)"},
      {"y := a*x + b", "c", "@normalize(y:=b+a*x,c)"},
      {"y := ", "y", "<\"syntax error: expression ends unexpectedly\">"},
  };
  for (const Row& row : rows) {
    mathexpr* eq = mathexpr_create(table, row.equation);
    mathexpr* v = mathexpr_create(table, row.variable);
    const std::string before = Structure(eq);
    mathexpr* solved = mathexpr_normalize(eq, v);
    const std::string got = Text(solved);
    EXPECT_EQ(got, row.expected) << row.equation;
    EXPECT_EQ(Structure(eq), before) << row.equation;
    mathexpr_destroy(solved);
    mathexpr_destroy(eq);
    mathexpr_destroy(v);
  }
}

}  // namespace
}  // namespace quillon::testing
