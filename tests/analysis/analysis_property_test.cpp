// Property tests of the structural analysis: coefficients put back together give the value of
// the linear form they came from, and the set operations agree with the same operations done
// on the printed elements.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

class AnalysisProperties : public ExpressionTest {
 protected:
  // The printed items of the list e.
  std::vector<std::string> Items(mathexpr* e) {
    std::vector<std::string> items;
    mathexpr* child = mathexpr_first_child(e);
    for (bool more = !mathexpr_is_void(child); more; more = mathexpr_next_child(&child) != 0) items.push_back(Text(child));
    mathexpr_destroy(child);
    return items;
  }

  // The value of text with each name of values replaced by its number.
  double ValueAt(const std::string& text, const std::map<std::string, int>& values) {
    std::string substituted;
    for (size_t i = 0; i < text.size();) {
      if (std::isalpha(static_cast<unsigned char>(text[i])) == 0) {
        substituted += text[i++];
        continue;
      }
      size_t end = i;
      while (end < text.size() && std::isalnum(static_cast<unsigned char>(text[end])) != 0) ++end;
      const std::string name = text.substr(i, end - i);
      const auto found = values.find(name);
      substituted += found != values.end() ? "(" + std::to_string(found->second) + ")" : name;
      i = end;
    }
    mathexpr* e = mathexpr_create(table, substituted.c_str());
    mathexpr_evaluate(e, 3);
    const double value = mathexpr_as_number(e);
    mathexpr_destroy(e);
    return value;
  }

  std::mt19937 random{20261122};
};

// A random coefficient over the parameters p0..p2: a number, a parameter, or a small product,
// power or sum of them.
std::string Coefficient(std::mt19937& random) {
  const std::string p = "p" + std::to_string(random() % 3);
  const std::string k = std::to_string(1 + random() % 5);
  switch (random() % 5) {
    case 0: return k;
    case 1: return p;
    case 2: return k + "*" + p;
    case 3: return p + "^2";
    default: return "(" + p + " - " + k + ")";
  }
}

// A random term of a form linear in v0..v2, in one of the shapes the rules take apart:
// coefficient times variable either way round, a multiple of a sum with a variable, or a
// term without a variable.
std::string LinearTerm(std::mt19937& random) {
  const std::string v = "v" + std::to_string(random() % 3);
  const std::string c = Coefficient(random);
  switch (random() % 5) {
    case 0: return c + "*" + v;
    case 1: return v + "*" + c;
    case 2: return c + "*(" + v + " + " + Coefficient(random) + ")";
    case 3: return v;
    default: return c;
  }
}

TEST_F(AnalysisProperties, CoefficientsRebuildTheLinearForm) {
  mathexpr* variables = mathexpr_create(table, "{v0, v1, v2}");
  for (int round = 0; round < 200; ++round) {
    std::string form = LinearTerm(random);
    for (int t = static_cast<int>(random() % 6); t > 0; --t) form += (random() % 3 == 0 ? " - " : " + ") + LinearTerm(random);
    mathexpr* e = mathexpr_create(table, form.c_str());
    mathexpr* coefficients = mathexpr_lincoefs(e, variables);
    const std::vector<std::string> items = Items(coefficients);
    ASSERT_EQ(items.size(), 4u) << form;
    const std::string rebuilt =
        "(" + items[0] + ") + (" + items[1] + ")*v0 + (" + items[2] + ")*v1 + (" + items[3] + ")*v2";
    for (int point = 0; point < 3; ++point) {
      std::map<std::string, int> values;
      for (const char* name : {"p0", "p1", "p2", "v0", "v1", "v2"}) values[name] = static_cast<int>(random() % 11) - 5;
      EXPECT_DOUBLE_EQ(ValueAt(rebuilt, values), ValueAt(form, values)) << form << " gave " << rebuilt;
    }
    mathexpr_destroy(coefficients);
    mathexpr_destroy(e);
  }
  mathexpr_destroy(variables);
}

TEST_F(AnalysisProperties, SetOperationsAgreeWithSetsOfPrintedElements) {
  const char* pool[] = {"a", "b", "c", "x", "x(-1)", "1", "2", "1/2", "0.5", "{a}", "{a, b}", "a + b", "2*a", "\"s\""};
  auto randomList = [&] {
    std::string text = "{";
    for (int n = static_cast<int>(random() % 7); n > 0; --n) text += std::string(pool[random() % std::size(pool)]) + (n > 1 ? ", " : "");
    return text + "}";
  };
  struct Operation {
    mathexpr* (*call)(mathexpr*, mathexpr*);
    std::set<std::string> (*expected)(const std::set<std::string>&, const std::set<std::string>&);
  };
  const Operation operations[] = {
      {mathexpr_union, [](const std::set<std::string>& a, const std::set<std::string>& b) {
         std::set<std::string> r = a;
         r.insert(b.begin(), b.end());
         return r;
       }},
      {mathexpr_intersection, [](const std::set<std::string>& a, const std::set<std::string>& b) {
         std::set<std::string> r;
         std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::inserter(r, r.end()));
         return r;
       }},
      {mathexpr_complement, [](const std::set<std::string>& a, const std::set<std::string>& b) {
         std::set<std::string> r;
         std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::inserter(r, r.end()));
         return r;
       }},
  };
  for (int round = 0; round < 300; ++round) {
    mathexpr* a = mathexpr_create(table, randomList().c_str());
    mathexpr* b = mathexpr_create(table, randomList().c_str());
    mathexpr_evaluate(a, 3);
    mathexpr_evaluate(b, 3);
    const std::vector<std::string> itemsA = Items(a), itemsB = Items(b);
    const std::set<std::string> setA(itemsA.begin(), itemsA.end()), setB(itemsB.begin(), itemsB.end());
    for (const Operation& operation : operations) {
      mathexpr* result = operation.call(a, b);
      const std::vector<std::string> items = Items(result);
      const std::set<std::string> got(items.begin(), items.end());
      EXPECT_EQ(items.size(), got.size()) << Text(result) << ": each element once";
      EXPECT_EQ(got, operation.expected(setA, setB)) << Text(a) << " and " << Text(b) << " gave " << Text(result);
      mathexpr_destroy(result);
    }
    mathexpr_destroy(a);
    mathexpr_destroy(b);
  }
}

}  // namespace
}  // namespace quillon::testing
