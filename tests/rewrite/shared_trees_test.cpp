// Rules on trees that a host shares or writes wildcards into: a second handle on the root
// (mathexpr_clone), a handle on a child (mathexpr_first_child), and #n in the host's own text.
// The rewritten handle must get the same result as an unshared tree, and every other handle
// must keep the tree it had.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

constexpr uint32_t kSimplify = 3;

enum class Holder { Clone, Child };

class SharedTrees : public ExpressionTest {
 protected:
  // Evaluates text through a clone, or through its root while a child handle is held, and
  // checks that the other handle is still a sound tree: a held child keeps its text, while a
  // clone shares the rewrite. Gives the evaluated text.
  std::string EvaluateShared(const char* text, Holder holder) {
    mathexpr* e = mathexpr_create(table, text);
    mathexpr* other = holder == Holder::Clone ? mathexpr_clone(e) : mathexpr_first_child(e);
    mathexpr* target = holder == Holder::Clone ? other : e;
    mathexpr* kept = holder == Holder::Clone ? e : other;
    const std::string before = Text(kept);
    mathexpr_evaluate(target, kSimplify);
    std::string result = Text(target);
    if (holder == Holder::Child) {
      EXPECT_EQ(Text(kept), before) << text;
    }
    EXPECT_TRUE(LinksConsistent(RootOf(kept))) << text;
    mathexpr_destroy(other);
    mathexpr_destroy(e);
    return result;
  }
};

const struct {
  const char* symptom;
  const char* text;
  Holder holder;
  const char* expected;
} kReproducers[] = {
    {"read past the bindings", "log(@sin[1](x+#12))", Holder::Child, "log(@cos(x+#12))"},
    {"wild read at the largest index", "log(@sin[1](x+#2147483647))", Holder::Child, "log(@cos(x+#2147483647))"},
    {"null member access under a clone", "log(@sin[1](x+#2))", Holder::Clone, "log(@cos(x+#2))"},
    {"null member access under a clone", "log(@sin[1](x+#9))", Holder::Clone, "log(@cos(x+#9))"},
    {"memory grew without end", "@sin[1](x+#1)", Holder::Clone, "@cos(x+#1)"},
    {"host #1 taken for the rule's #1", "exp(x+#1)*exp(y)", Holder::Child, "exp(x+y+#1)"},
    {"host #1 taken for the rule's #1", "exp(x+#1)*exp(y)", Holder::Clone, "exp(x+y+#1)"},
    {"shared root relinked into the result", "(a*b)^2", Holder::Clone, "a^2*b^2"},
    {"shared child emptied by a rule", "-(a+b)", Holder::Child, "-a-b"},
    {"shared child emptied by a rule", "b+a+a", Holder::Child, "2*a+b"},
};

TEST_F(SharedTrees, Reproducers) {
  for (const auto& row : kReproducers)
    EXPECT_EQ(EvaluateShared(row.text, row.holder), row.expected) << row.symptom << ": " << row.text;
}

// Host wildcards under derivative notation and pattern rules, at every place a rule binds or
// copies: sharing must not change the result.
TEST_F(SharedTrees, SharingNeverChangesTheResult) {
  const char* const inner[] = {
      "@sin[1](x+{w})",  "@cos[1]({w})",         "log(exp(x+{w}))",  "log({w}^2)",     "log(x^{w})",
      "exp(x+{w})*exp(y)", "exp({w})*exp({w})",  "exp({w})^{w}",     "@asin[1]({w})",  "log[1]({w}+x)",
      "@gammainc[1,0]({w},#2)", "@pc({w})",      "@qnorm[1]({w})",
  };
  const char* const outer[] = {"{i}", "log({i})", "{i}*exp(z)", "exp({i})*exp(#1)"};
  const char* const wildcards[] = {"#1", "#2", "#12", "#2147483647"};
  auto fill = [](std::string text, const char* hole, const std::string& with) {
    for (size_t at; (at = text.find(hole)) != std::string::npos;) text.replace(at, 3, with);
    return text;
  };
  for (const char* o : outer)
    for (const char* i : inner)
      for (const char* w : wildcards) {
        const std::string text = fill(o, "{i}", fill(i, "{w}", w));
        const std::string plain = EvaluatedText(text.c_str(), kSimplify);
        EXPECT_EQ(EvaluateShared(text.c_str(), Holder::Clone), plain) << text << " through a clone";
        EXPECT_EQ(EvaluateShared(text.c_str(), Holder::Child), plain) << text << " with a child held";
      }
}

}  // namespace
}  // namespace quillon::testing
