// The deepest text the parser accepts, and chains far longer, go through parsing, evaluation
// and printing on a thread whose stack is 1 MiB, the default of the target platform.
#include <gtest/gtest.h>

#include <pthread.h>

#include <functional>
#include <string>
#include <vector>

#include "quillon.h"
#include "quillon_program.h"

namespace {

void RunOnSmallStack(const std::function<void()>& work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, 1 << 20);
  pthread_t thread;
  auto trampoline = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, trampoline, const_cast<std::function<void()>*>(&work)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

std::string Repeat(const std::string& piece, int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += piece;
  return text;
}

// Parses, evaluates and prints text; returns whether it parsed.
bool RoundTrip(const std::string& text) {
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  mathexpr* e = mathexpr_create(table, text.c_str());
  const bool parsed = !mathexpr_is_error(e);
  mathexpr_evaluate(e, 3);
  int32_t length = 0;
  mathexpr_as_text(e, nullptr, 0, &length, 1);
  mathexpr_destroy(e);
  mathsymtable_destroy(table);
  return parsed;
}

TEST(SmallStack, DeepestNestingAndLongChainsAreSafe) {
  const std::string texts[] = {
      Repeat("log(-(x + {", 51) + "y" + Repeat("}))", 51),
      Repeat("(x - ", 128) + "y" + Repeat(")", 128),
      Repeat("x^", 255) + "2",
      "x" + Repeat(" - x/y", 200000),
      "x" + Repeat(" * (y + 1)", 50000),
      "@expandtime(x" + Repeat(" + d(x, 2) - @movav(y, 3)", 30000) + ")",
      "@lag(x" + Repeat(" - x(-1)", 100000) + ", 2)",
      "@normalize(x" + Repeat(" + y", 100000) + " := z, x)",
      "@implicit(y := x" + Repeat(" - x/y", 100000) + ")",
  };
  for (const std::string& text : texts) {
    bool parsed = false;
    RunOnSmallStack([&] { parsed = RoundTrip(text); });
    EXPECT_TRUE(parsed) << text.substr(0, 60);
  }
}

// Substitution, replacement, search and the dependency of equations walk chains as long as
// their input and definitions that refer to each other as far as the list goes.
TEST(SmallStack, ReplacementAndSearchWalkLongChains) {
  const std::string chain = "x" + Repeat(" < x", 200000);
  const std::string nest = Repeat("log(", 250) + "x" + Repeat(")", 250);
  std::string definitions = "@eq(a0, 1)";
  for (int i = 1; i < 20000; ++i)
    definitions += ", @eq(a" + std::to_string(i) + ", a" + std::to_string(i - 1) + " + 1)";
  const std::string texts[] = {
      "@replace_expr(" + chain + ", @list(@eq(x, y + 1), @eq(y, 2)))",
      "@replace_expr_ex(" + chain + ", @eq(x, z))",
      "@find(log(" + chain + ") * exp(" + chain + "), exp(#1) * log(#1), TRUE)",
      "@eqkeep(@list(a = " + chain + " < w), w)",
      "@replace_expr(a19999, @list(" + definitions + "))",
      "@eqkeep(@list(" + definitions + "), a0)",
      "@replace_expr(" + nest + ", @eq(x, y))",
      "@find(" + nest + ", log(#1), TRUE)",
  };
  for (const std::string& text : texts) {
    bool parsed = false;
    RunOnSmallStack([&] { parsed = RoundTrip(text); });
    EXPECT_TRUE(parsed) << text.substr(0, 60);
  }
}

// Differentiates text by the variable text; returns whether the result holds no @deriv.
bool Differentiates(const std::string& text, const char* variable) {
  mathsymtable* table = mathsymtable_create(nullptr, 1);
  mathexpr* f = mathexpr_create(table, text.c_str());
  mathexpr* x = mathexpr_create(table, variable);
  mathexpr* d = mathexpr_deriv(f, x);
  int32_t length = 0;
  mathexpr_as_text(d, nullptr, 0, &length, 0);
  std::string printed(static_cast<size_t>(length), '\0');
  mathexpr_as_text(d, printed.data(), length, nullptr, 0);
  const bool resolved = !mathexpr_is_error(d) && printed.find("@deriv") == std::string::npos;
  for (mathexpr* e : {d, x, f}) mathexpr_destroy(e);
  mathsymtable_destroy(table);
  return resolved;
}

TEST(SmallStack, DerivativesOfDeepNestingAndLongChainsAreSafe) {
  const struct {
    std::string text;
    const char* variable;
  } cases[] = {
      {Repeat("@sin(", 255) + "x" + Repeat(")", 255), "x"},
      {Repeat("x^", 255) + "2", "x"},
      {"x" + Repeat(" - x/y", 200000), "@list(x, y, z)"},
      {"@HasUnknownDerivs(@erf(x)" + Repeat(" + x*y", 200000) + ")", "x"},
  };
  for (const auto& c : cases) {
    bool resolved = false;
    RunOnSmallStack([&] { resolved = Differentiates(c.text, c.variable); });
    EXPECT_TRUE(resolved) << c.text.substr(0, 60);
  }
}

// A chain of comparisons is not flattened by simplification, so the analysis rules meet it as
// it was parsed: 200,000 levels deep through the exports, 40,000 in each of the rules that have
// none.
TEST(SmallStack, AnalysisWalksLongChains) {
  auto chain = [](int n) { return "x" + Repeat(" < a*x(-1)", n); };
  const std::string rulesWithoutExports = "{@IsNumeric(" + chain(40000) + "), @IsPolynomial(" + chain(40000) +
                                          ", x), @LinCollect(" + chain(40000) + ", x), @LinExpand(" + chain(40000) +
                                          ", x), @IRange2D(" + chain(40000) + ", x)}";
  const std::string longChain = "{" + chain(200000) + "}";
  RunOnSmallStack([&] {
    mathsymtable* table = mathsymtable_create(nullptr, 1);
    mathexpr* e = mathexpr_create(table, longChain.c_str());
    mathexpr* x = mathexpr_create(table, "x");
    mathexpr* results[] = {mathexpr_symlist(e, 63), mathexpr_lincoefs(e, x),     mathexpr_union(e, e),
                           mathexpr_intersection(e, e), mathexpr_complement(e, e), mathexpr_sort(e)};
    int32_t low = 0, high = 0;
    EXPECT_EQ(mathexpr_irange1d(e, x, &low, &high), 1u);
    EXPECT_EQ(mathexpr_is_constant(e, x) + mathexpr_is_linear(e, x), 0u);
    for (mathexpr* result : results) {
      EXPECT_FALSE(mathexpr_is_error(result));
      mathexpr_destroy(result);
    }
    mathexpr_destroy(x);
    mathexpr_destroy(e);
    mathsymtable_destroy(table);
  });
  bool parsed = false;
  RunOnSmallStack([&] { parsed = RoundTrip(rulesWithoutExports); });
  EXPECT_TRUE(parsed);
}

// A chain of comparisons stays a chain through simplification: @subexpr sorts its heights and
// shares the repeated call below it, and the stack evaluator walks it, all without recursion.
TEST(SmallStack, SubexprAndStackEvaluationOfALongChain) {
  const std::string text = "@subexpr(exp(x)" + Repeat(" < exp(x)", 100000) + ")";
  int32_t cells = 0;
  double answer = -1;
  RunOnSmallStack([&] {
    mathsymtable* table = mathsymtable_create(nullptr, 1);
    mathexpr* e = mathexpr_create(table, text.c_str());
    mathexpr_evaluate(e, 3);
    std::vector<double> stack(8);
    const double inputs[] = {0.5};
    cells = mathexpr_stackeval(e, stack.data(), inputs);
    answer = stack[1];
    mathexpr_destroy(e);
    mathsymtable_destroy(table);
  });
  EXPECT_EQ(cells, 2);
  EXPECT_EQ(answer, 1.0);  // (e < e) is 0, and 0 and then 1 are below e^0.5
}

// The same kind of texts through the batch evaluator: simplification, @subexpr, compilation
// and a run over a few rows.
TEST(SmallStack, ProgramsOfLongChainsAreSafe) {
  const std::string texts[] = {
      Repeat("log(-(x + {", 51) + "y" + Repeat("}))", 51),
      Repeat("x^", 255) + "2",
      "x" + Repeat(" - x/y", 200000),
      "x" + Repeat(" * (y + 1)", 50000),
      "exp(x)" + Repeat(" < exp(x)", 100000),
  };
  for (const std::string& text : texts) {
    int32_t outputs = 0;
    RunOnSmallStack([&] {
      mathsymtable* table = mathsymtable_create(nullptr, 1);
      mathexpr* e = mathexpr_create(table, text.c_str());
      quillon_program* p = quillon_program_create(e);
      mathexpr_destroy(e);
      const double column[3] = {1.5, 2.0, 0.5};
      const double* inputs[] = {column, column};
      double result[3];
      double* results[] = {result};
      if (p != nullptr && quillon_program_input_count(p) <= 2 && quillon_program_output_count(p) == 1 &&
          quillon_program_evaluate(p, 3, inputs, results) == 0)
        outputs = 1;
      quillon_program_destroy(p);
      mathsymtable_destroy(table);
    });
    EXPECT_EQ(outputs, 1) << text.substr(0, 60);
  }
}

// A host resolver that looks a name up by parsing it, which asks the resolver again.
mathsymtable* selfResolving = nullptr;
int32_t QUILLON_CALL ParseOwnName(const char* name) {
  mathexpr_destroy(mathexpr_create(selfResolving, name));
  return 1;
}

TEST(SmallStack, ResolverThatParsesItsOwnNameStopsBeforeTheStackEnds) {
  bool parsed = false;
  RunOnSmallStack([&] {
    selfResolving = mathsymtable_create(ParseOwnName, 0);
    mathexpr* e = mathexpr_create(selfResolving, "q+1");
    parsed = !mathexpr_is_error(e);
    mathexpr_destroy(e);
    mathsymtable_destroy(selfResolving);
  });
  EXPECT_TRUE(parsed);
}

}  // namespace
