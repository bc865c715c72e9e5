// The rule catalogue as data: every rule of the engine, on the function it stands on, with its
// mode, in the order of attachment. The order is behaviour: within a function's list it is the
// order of the attempts, and a pattern rule prepares its texts with the rules attached before it.
// Definitions carry no behaviour, so the whole function catalogue is defined first.
#include "rewrite/rule_catalogue.h"

#include <memory>

#include "calculus/deriv_rules.h"
#include "calculus/function_deriv_rules.h"
#include "compile/subexpr_rule.h"
#include "calculus/implicit_rule.h"
#include "rewrite/flatten_rule.h"
#include "rewrite/log_exp_rules.h"
#include "rewrite/pattern_rule.h"
#include "rewrite/power_rules.h"
#include "rewrite/product_rules.h"
#include "rewrite/sign_logic_rules.h"
#include "rewrite/sum_rules.h"
#include "timeseries/difference_rules.h"
#include "timeseries/expand_time_rule.h"
#include "timeseries/lag_rules.h"
#include "timeseries/moving_rules.h"
#include "timeseries/normalize_rules.h"
#include "timeseries/percent_change_rules.h"

namespace quillon {
namespace {

using RuleMaker = std::unique_ptr<Rule> (*)(uint32_t mode);

template <class R>
std::unique_ptr<Rule> Make(uint32_t mode) {
  return std::make_unique<R>(mode);
}

// A rule class, or (with no maker) a pattern rule with its two texts as start-up holds them.
struct RuleRow {
  const char* function;
  uint32_t mode;
  RuleMaker make;
  const char* pattern = nullptr;
  const char* replacement = nullptr;
};

// ORDER RULES: the rows are attached top to bottom.
const RuleRow kRules[] = {
    // ---- The arithmetic of the operators, ahead of every pattern: the patterns are prepared with
    // these rules, and the canonical stage needs the four rules of mode 2.
    {"@and",        ModeSimplify,  Make<AndRule>},
    {"@or",         ModeSimplify,  Make<OrRule>},
    {"@plus",       ModeSimplify,  Make<PlusRule>},
    {"@plus",       ModeSimplify,  Make<PlusRule2>},
    {"@plus",       ModeFactor,    Make<PlusRule4>},
    {"@plus",       ModeFactor,    Make<PlusRule3>},
    {"@plus",       ModeDisplay,   Make<PlusRule5>},
    {"@times",      ModeSimplify,  Make<TimesRule>},
    {"@times",      ModeSimplify,  Make<TimesRule3>},
    {"@times",      ModeSimplify,  Make<TimesRule2>},
    {"@times",      ModeExpand,    Make<TimesRule4>},
    {"@times",      ModeDisplay,   Make<TimesRule5>},
    {"@times",      ModeDisplay,   Make<TimesRule6>},
    {"@pow",        ModeSimplify,  Make<PowerRule>},
    {"@pow",        ModeSimplify,  Make<PowerRule2>},
    {"@pow",        ModeSimplify,  Make<PowerRule3>},
    {"@pow",        ModeExpand,    Make<PowerRule5>},
    {"@pow",        ModeDisplay,   Make<PowerRule6>},
    {"@UnaryPlus",  ModeCanonical, Make<UPlusRule>},
    {"@UnaryMinus", ModeCanonical, Make<UMinusRule>},
    {"@minus",      ModeCanonical, Make<MinusRule>},
    {"@divide",     ModeCanonical, Make<DivideRule>},

    // ---- The numeric cases of log and exp, ahead of the patterns on log (4) and on products (7).
    {"log",         ModeSimplify,  Make<LogRule>},
    {"exp",         ModeSimplify,  Make<ExpRule>},

    // ---- Pattern rules, in the order of their numbers. Derivative notation such as @sin[1](#1)
    // is how differentiation finds the derivative of a catalogued function. Pattern 12 never
    // fires: the division of its pattern is prepared into a product, which a @divide node never
    // matches, so @log10(x) reads back as log(x)/log(10).
    {"@sqrt",        ModeCanonical, nullptr, "@sqrt(#1)", "@pow(#1, 1/2)"},  // 1
    {"@inv",         ModeCanonical, nullptr, "@inv(#1)", "@pow(#1, -1)"},  // 2
    {"@pow",         ModeDisplay,   nullptr, "@pow(#1, 1/2)", "@sqrt(#1)"},  // 3
    {"log",          ModeSimplify,  nullptr, "Log(#1 ^ #2)", "#2 * Log(#1)"},  // 4
    {"log",          ModeSimplify,  nullptr, "Log(Exp(#1))", "#1"},  // 5
    {"log",          ModeSimplify,  nullptr, "Log[1](#1)", "#1 ^ -1"},  // 6
    {"@times",       ModeSimplify,  nullptr, "Exp(#1) * Exp(#2)", "Exp(#1 + #2)"},  // 7
    {"@pow",         ModeSimplify,  nullptr, "Exp(#1)^#2", "Exp(#2 * #1)"},  // 8
    {"exp",          ModeSimplify,  nullptr, "Exp[1](#1)", "Exp(#1)"},  // 9
    {"@log10",       ModeCanonical, nullptr, "@Log10(#1)", "Log(#1)/Log(10)"},  // 10
    {"@logx",        ModeCanonical, nullptr, "@Logx(#1,#2)", "Log(#1)/Log(#2)"},  // 11
    {"@divide",      ModeDisplay,   nullptr, "log(#1)/log(10)", "@log10(#1)"},  // 12
    {"@sin",         ModeSimplify,  nullptr, "@sin[1](#1)", "@cos(#1)"},  // 13
    {"@cos",         ModeSimplify,  nullptr, "@cos[1](#1)", "-@sin(#1)"},  // 14
    {"@tan",         ModeSimplify,  nullptr, "@tan[1](#1)", "@cos(#1)^-2"},  // 15
    {"@asin",        ModeSimplify,  nullptr, "@asin[1](#1)", "(1 - #1^2)^(-1/2)"},  // 16
    {"@acos",        ModeSimplify,  nullptr, "@acos[1](#1)", "-((1 - #1^2)^(-1/2))"},  // 17
    {"@atan",        ModeSimplify,  nullptr, "@atan[1](#1)", "(1+#1^2)^-1"},  // 18
    {"@abs",         ModeSimplify,  nullptr, "@abs[1](#1)", "@recode(#1>=0, 1, -1)"},  // 19
    {"@gamma",       ModeSimplify,  nullptr, "@Gamma[1](#1)", "@Gammader(#1)"},  // 20
    {"@gammalog",    ModeSimplify,  nullptr, "@Gammalog[1](#1)", "@Digamma(#1)"},  // 21
    {"@digamma",     ModeSimplify,  nullptr, "@Digamma[1](#1)", "@Trigamma(#1)"},  // 22
    {"@gammainc",    ModeSimplify,  nullptr, "@Gammainc[1,0](#1, #2)", "@Gammaincder(#1, #2, 1)"},  // 23
    {"@gammaincder", ModeSimplify,  nullptr, "@Gammaincder[1,0,0](#1, #2, 1)", "@Gammaincder(#1, #2, 3)"},  // 24
    {"@gammaincder", ModeSimplify,  nullptr, "@Gammaincder[0,1,0](#1, #2, 1)", "@Gammaincder(#1, #2, 4)"},  // 25
    {"@gammainc",    ModeSimplify,  nullptr, "@Gammainc[0,1](#1, #2)", "@Gammaincder(#1, #2, 2)"},  // 26
    {"@gammaincder", ModeSimplify,  nullptr, "@Gammaincder[1,0,0](#1, #2, 2)", "@Gammaincder(#1, #2, 3)"},  // 27
    {"@gammaincder", ModeSimplify,  nullptr, "@Gammaincder[0,1,0](#1, #2, 2)", "@Gammaincder(#1, #2, 5)"},  // 28
    {"@betainc",     ModeSimplify,  nullptr, "@Betainc[1,0,0](#1, #2, #3)", "@Betaincder(#1, #2, #3, 1)"},  // 29
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[1,0,0,0](#1, #2, #3, 1)", "@Betaincder(#1, #2, #3, 4)"},  // 30
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[0,1,0,0](#1, #2, #3, 1)", "@Betaincder(#1, #2, #3, 5)"},  // 31
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[0,0,1,0](#1, #2, #3, 1)", "@Betaincder(#1, #2, #3, 6)"},  // 32
    {"@betainc",     ModeSimplify,  nullptr, "@Betainc[0,1,0](#1, #2, #3)", "@Betaincder(#1, #2, #3, 2)"},  // 33
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[1,0,0,0](#1, #2, #3, 2)", "@Betaincder(#1, #2, #3, 5)"},  // 34
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[0,1,0,0](#1, #2, #3, 2)", "@Betaincder(#1, #2, #3, 7)"},  // 35
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[0,0,1,0](#1, #2, #3, 2)", "@Betaincder(#1, #2, #3, 8)"},  // 36
    {"@betainc",     ModeSimplify,  nullptr, "@Betainc[0,0,1](#1, #2, #3)", "@Betaincder(#1, #2, #3, 3)"},  // 37
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[1,0,0,0](#1, #2, #3, 3)", "@Betaincder(#1, #2, #3, 6)"},  // 38
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[0,1,0,0](#1, #2, #3, 3)", "@Betaincder(#1, #2, #3, 8)"},  // 39
    {"@betaincder",  ModeSimplify,  nullptr, "@Betaincder[0,0,1,0](#1, #2, #3, 3)", "@Betaincder(#1, #2, #3, 9)"},  // 40
    {"@cbeta",       ModeSimplify,  nullptr, "@cbeta[1,0,0](#1, #2, #3)", "@dbeta(#1, #2, #3)"},  // 41
    {"@cchisq",      ModeSimplify,  nullptr, "@cchisq[1,0](#1, #2)", "@dchisq(#1, #2)"},  // 42
    {"@cexp",        ModeSimplify,  nullptr, "@cexp[1,0,0](#1, #2, #3)", "@dexp(#1, #2, #3)"},  // 43
    {"@cextreme",    ModeSimplify,  nullptr, "@cextreme[1](#1)", "@dextreme(#1)"},  // 44
    {"@cfdist",      ModeSimplify,  nullptr, "@cfdist[1, 0, 0](#1, #2, #3)", "@dfdist(#1, #2, #3)"},  // 45
    {"@cgamma",      ModeSimplify,  nullptr, "@cgamma[1, 0, 0](#1, #2, #3)", "@dgamma(#1, #2, #3)"},  // 46
    {"@cged",        ModeSimplify,  nullptr, "@cged[1, 0](#1, #2)", "@dged(#1, #2)"},  // 47
    {"@clogistic",   ModeSimplify,  nullptr, "@clogistic[1](#1)", "@dlogistic(#1)"},  // 48
    {"@logit",       ModeSimplify,  nullptr, "@logit[1](#1)", "@dlogistic(#1)"},  // 49
    {"@clognorm",    ModeSimplify,  nullptr, "@clognorm[1, 0, 0](#1, #2, #3)", "@dlognorm(#1, #2, #3)"},  // 50
    {"@cnorm",       ModeSimplify,  nullptr, "@cnorm[1](#1)", "@dnorm(#1)"},  // 51
    {"@qnorm",       ModeSimplify,  nullptr, "@qnorm[1](#1)", "1/@dnorm(@qnorm(#1))"},  // 52
    {"@ctdist",      ModeSimplify,  nullptr, "@ctdist[1,0](#1,#2)", "@dtdist(#1, #2)"},  // 53
    {"@pc",          ModeSimplify,  nullptr, "@pc(#1)", "100*@pch(#1)"},  // 54
    {"@times",       ModeDisplay,   nullptr, "100*@pch(#1)", "@pc(#1)"},  // 55
    {"@pca",         ModeSimplify,  nullptr, "@pca(#1)", "100*@pcha(#1)"},  // 56
    {"@times",       ModeDisplay,   nullptr, "100*@pcha(#1)", "@pca(#1)"},  // 57
    {"@pcy",         ModeSimplify,  nullptr, "@pcy(#1)", "100*@pchy(#1)"},  // 58
    {"@times",       ModeDisplay,   nullptr, "100*@pchy(#1)", "@pcy(#1)"},  // 59

    // ---- Lags, differences, moving and percent-change forms: a standard shape while simplifying,
    // the short forms for display, plain lagged terms under ModeTimeExpand.
    {"@lag",        ModeSimplify,   Make<LagRule1>},
    {"@lag",        ModeTimeExpand, Make<LagRule2>},
    {"d",           ModeSimplify,   Make<DifferenceRule1>},
    {"d",           ModeSimplify,   Make<DifferenceRule2>},
    {"d",           ModeDisplay,    Make<DifferenceRule3>},
    {"d",           ModeDisplay,    Make<DifferenceRule5>},
    {"d",           ModeDisplay,    Make<DifferenceRule6>},
    {"d",           ModeTimeExpand, Make<DifferenceRule7>},
    {"dlog",        ModeCanonical,  Make<LogDiffRule1>},
    {"@movsum",     ModeTimeExpand, Make<MovsumRule1>},
    {"@movav",      ModeTimeExpand, Make<MovavRule1>},
    {"@pch",        ModeTimeExpand, Make<PchRule1>},
    {"@pchy",       ModeTimeExpand, Make<PchyRule1>},
    {"@pcha",       ModeTimeExpand, Make<PchaRule1>},

    // ---- Differentiation, after every pattern: no text depends on it. The rules of @deriv are
    // tried in this order, and a rule that fits the shape always changes it, so the order decides
    // which one takes a call: lists first, the chain rule after the operators with rules of
    // their own, leaves next, several variables last.
    {"@deriv",            ModeSimplify, Make<DerivRule7>},
    {"@deriv",            ModeSimplify, Make<DerivRule2>},
    {"@deriv",            ModeSimplify, Make<DerivRule3>},
    {"@deriv",            ModeSimplify, Make<DerivRule4>},
    {"@deriv",            ModeSimplify, Make<DerivRule8>},
    {"@deriv",            ModeSimplify, Make<DerivRule6>},
    {"@deriv",            ModeSimplify, Make<DerivRule>},
    {"@deriv",            ModeSimplify, Make<DerivRule5>},
    {"@HasUnknownDerivs", ModeSimplify, Make<HasUnknownDerivsRule>},
    {"@derivx",           ModeSimplify, Make<DerivxRule>},

    // ---- Structural operations.
    {"@flatten",    ModeSimplify,  Make<FlattenRule>},

    // ---- Compilation.
    {"@subexpr",    ModeSimplify,  Make<SubexprRule>},
    // ---- Normal forms of expressions and equations.
    {"@expandtime", ModeSimplify,  Make<ExpandTimeRule>},
    {"@normalize",  ModeSimplify,  Make<NormalizeRule1>},
    {"@normalize",  ModeSimplify,  Make<NormalizeRule2>},
    {"@normalize",  ModeSimplify,  Make<NormalizeRule3>},
    {"@normalize",  ModeSimplify,  Make<NormalizeRule4>},
    {"@normalize",  ModeCanonical, Make<NormalizeRule5>},
    {"@implicit",   ModeSimplify,  Make<ImplicitRule>},
};

}  // namespace

void AttachRuleCatalogue(ThreadContext& context) {
  for (const RuleRow& row : kRules) {
    FunctionDef* function = context.functions->Lookup(row.function);
    std::unique_ptr<Rule> rule = row.make != nullptr
                                     ? row.make(row.mode)
                                     : std::make_unique<PatternRule>(context, row.pattern, row.replacement, row.mode);
    AttachRule(function, std::move(rule));
  }
}

}  // namespace quillon
