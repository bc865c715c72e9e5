// Pattern rules: the catalogue's patterns through the exports (derivative notation, friendly
// functions, forms for reading, the algebra of log and exp), and rules built from texts here for
// what the catalogue never shows: repeated wildcards, unused bindings, texts that do not parse.
#include <gtest/gtest.h>

#include "language/thread_context.h"
#include "rewrite/pattern_rule.h"
#include "support/expression_test.h"

namespace quillon::testing {
namespace {

constexpr uint32_t kCanonical = 2;
constexpr uint32_t kSimplify = 3;
constexpr uint32_t kDisplay = 4;
constexpr uint32_t kRoundTrip = 7;  // simplify, then the forms for reading

const StructureRow kCatalogueRows[] = {
    // Derivative notation selects the closed form; other orders and arities stay.
    {"@sin[1](x)", kSimplify, "@cos(x)"},
    {"@sin[2](x)", kSimplify, "@sin[2](x)"},
    {"@sin[1](x,y)", kSimplify, "@sin[1,0](x,y)"},
    {"@cos[1](x)", kSimplify, "@times(-1,@sin(x))"},
    {"@tan[1](x)", kSimplify, "@pow(@cos(x),-2)"},
    {"@abs[1](x)", kSimplify, "@recode(@ge(x,0),1,-1)"},
    {"@qnorm[1](x)", kSimplify, "@pow(@dnorm(@qnorm(x)),-1)"},
    {"@cfdist[1,0,0](x,y,z)", kSimplify, "@dfdist(x,y,z)"},
    {"@gammaincder[1,0,0](x,y,1)", kSimplify, "@gammaincder(x,y,3)"},
    {"@gammaincder[1,0,0](x,y,4)", kSimplify, "@gammaincder[1,0,0](x,y,4)"},
    // Friendly functions become core ones in the canonical stage.
    {"@sqrt(x)", kCanonical, "@pow(x,(1/2))"},
    {"@inv(x)", kCanonical, "@pow(x,-1)"},
    {"@logx(x,2)", kSimplify, "@times(@pow(log(2),-1),log(x))"},
    {"@log10(x)", kSimplify, "@times(@pow(log(10),-1),log(x))"},
    // Forms for reading match only the exact product; the quotient pattern never fires.
    {"@sqrt(x)", kRoundTrip, "@sqrt(x)"},
    {"@pc(x)", kSimplify, "@times(100,@pch(x))"},
    {"@pc(x)", kRoundTrip, "@pc(x)"},
    {"@pc(x)*y", kRoundTrip, "@times(100,y,@pch(x))"},
    {"log(x)/log(10)", kDisplay, "@divide(log(x),log(10))"},
    {"@log10(x)", kRoundTrip, "@divide(log(x),log(10))"},
    // The algebra of log and exp.
    {"log(exp(x+1))", kSimplify, "@plus(1,x)"},
    {"log(exp(x),2)", kSimplify, "log(exp(x),2)"},
    {"log(x^2)", kSimplify, "@times(2,log(x))"},
    {"log[1](x)", kSimplify, "@pow(x,-1)"},
    {"log[1](exp(x))", kSimplify, "exp(@times(-1,x))"},
    {"exp[1](x)", kSimplify, "exp(x)"},
    {"exp(b)*exp(a)", kSimplify, "exp(@plus(a,b))"},
    {"2*exp(a)*exp(b)", kSimplify, "@times(2,exp(a),exp(b))"},
    {"exp(a)^2", kSimplify, "exp(@times(2,a))"},
    {"exp(log(x))", kSimplify, "exp(log(x))"},
    // Wildcards written by a host are plain subtrees to a pattern.
    {"log(exp(#1))", kSimplify, "#1"},
    {"log(exp(#12))", kSimplify, "#12"},
};

const struct {
  const char* pattern;
  const char* replacement;
  const char* subject;
  bool fires;
  const char* expected;
} kOwnRuleRows[] = {
    // A repeated wildcard needs equal trees, children in the same order.
    {"@max(#1, #1)", "#1", "@max(a+b, a+b)", true, "@plus(a,b)"},
    {"@max(#1, #1)", "#1", "@max(a+b, b+a)", false, "@max(@plus(a,b),@plus(b,a))"},
    {"@max(#1, #1)", "#1", "@max(a)", false, "@max(a)"},
    // An unused binding is freed; one used twice is linked once and copied once.
    {"@max(#1, #2)", "#1", "@max(a, b+c)", true, "a"},
    {"@max(#1, #2)", "@min(#1, #1, #2)", "@max(x+#2, #2)", true, "@min(@plus(x,#2),@plus(x,#2),#2)"},
    // Wildcards the table cannot hold or fill, and texts that do not parse.
    {"@max(#12)", "#12", "@max(a)", false, "@max(a)"},
    {"@max(#1)", "@min(#1, #2)", "@max(a)", false, "@max(a)"},
    {"@max(", "#1", "@max(a)", false, "@max(a)"},
    {"@max(#1)", "@min(", "@max(a)", true, "<\"syntax error: expression ends unexpectedly\">"},
};

using PatternRules = ExpressionTest;

TEST_F(PatternRules, CatalogueRows) { ExpectStructures(kCatalogueRows); }

// Applies a rule to the root of a parsed, unsimplified subject, as the driver would.
TEST_F(PatternRules, OwnRules) {
  mathexpr_destroy(mathexpr_create_void());
  for (const auto& row : kOwnRuleRows) {
    PatternRule rule(*ContextWord(), row.pattern, row.replacement, ModeSimplify);
    const int64_t withRule = LiveNodeCount();
    mathexpr* e = mathexpr_create(table, row.subject);
    ExprHandle* handle = HandleOf(e);
    ENode* root = handle->LendRoot();
    const uint32_t fired = rule.Apply(&root);
    handle->ReturnRoot(root);
    EXPECT_EQ(Structure(e), row.expected) << row.pattern << " on " << row.subject;
    EXPECT_EQ(fired != 0, row.fires) << row.pattern << " on " << row.subject;
    mathexpr_destroy(e);
    EXPECT_EQ(LiveNodeCount(), withRule) << row.pattern << " on " << row.subject;
  }
}

// A display rule's quotient pattern is prepared into a product; its replacement stays as written.
TEST_F(PatternRules, PreparedTrees) {
  PatternRule display(*ContextWord(), "log(#1)/log(10)", "@log10(#1)", ModeDisplay);
  EXPECT_EQ(Dump(display.pattern.Root()), "@times(@pow(log(10),-1),log(#1))");
  EXPECT_EQ(Dump(display.replacement.Root()), "@log10(#1)");
  PatternRule canonical(*ContextWord(), "@sqrt(#1)", "@pow(#1, 1/2)", ModeCanonical);
  EXPECT_EQ(Dump(canonical.pattern.Root()), "@sqrt(#1)");
  const ENode* power = canonical.replacement.Root();
  EXPECT_EQ(Dump(power), "@pow(#1,(1/2))");
  EXPECT_EQ(power->flags & (FlagSettled | FlagHeld), 0u) << "copies must be visited";
  EXPECT_EQ(power->firstChild->flags & FlagHeld, 0u) << "copies must be substituted";
  EXPECT_NE(power->lastChild->flags & FlagSettled, 0u) << "numbers are simplified already";
}

}  // namespace
}  // namespace quillon::testing
