// The chain rule and its derivative notation, the catalogue's derivative patterns, the code
// chains of the incomplete gamma and beta functions, @HasUnknownDerivs and @derivx.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {
namespace {

// @erf and @beta have no derivative pattern, so their notation is the answer.
const TextRow kChainRows[] = {
    {"@deriv(@erf(x), x)", "@erf[1](x)"},
    {"@deriv(@erf(x), x, x)", "@erf[2](x)"},
    {"@deriv(@erf(x^2), x)", "2*x*@erf[1](x^2)"},
    {"@deriv(@erf(x), y)", "0"},
    {"@deriv(@erf(), x)", "0"},
    {"@deriv(@beta(k, x), x)", "@beta[0,1](k,x)"},
    {"@deriv(@beta(x, x), x)", "@beta[1,0](x,x)+@beta[0,1](x,x)"},
    {"@deriv(@beta(x^2, @sin(x)), x)", "2*x*@beta[1,0](x^2,@sin(x))+@beta[0,1](x^2,@sin(x))*@cos(x)"},
    {"@deriv(@beta[1,0](x, y), x)", "@beta[2,0](x,y)"},
    {"@deriv(@beta[1,0](x, y), y)", "@beta[1,1](x,y)"},
    {"@deriv(@beta(x, y), x, y)", "@beta[1,1](x,y)"},
    {"@deriv(@beta(x, y), y, x)", "@beta[1,1](x,y)"},
    // Four bits per argument: the ninth shares the first's field, 15 + 1 spills into the next
    // field without carrying further, and at the eighth it leaves the word.
    {"@deriv(@beta(a,b,c,e,f,g,h,k,x), x)", "@beta[1,0,0,0,0,0,0,0,1](a,b,c,e,f,g,h,k,x)"},
    {"@deriv(@beta[15,1](x, y), x)", "@beta[0,1](x,y)"},
    {"@deriv(@beta[15,15](x, y), x)", "@beta[0,15](x,y)"},
    {"@deriv(@beta[0,0,0,0,0,0,0,15](a,b,c,e,f,g,h,x), x)", "@beta(a,b,c,e,f,g,h,x)"},
};

// Every derivative pattern of the catalogue, and the parameters of distributions left alone.
const TextRow kPatternRows[] = {
    {"@deriv(log(x), x)", "1/x"},
    {"@deriv(exp(2*x), x)", "2*exp(2*x)"},
    {"@deriv(@sin(2*x), x)", "2*@cos(2*x)"},
    {"@deriv(@cos(x), x)", "-@sin(x)"},
    {"@deriv(@tan(x), x)", "@cos(x)^-2"},
    {"@deriv(@asin(x), x)", "(1-x^2)^(-1/2)"},
    {"@deriv(@acos(x), x)", "-1/@sqrt(1-x^2)"},
    {"@deriv(@atan(x), x)", "1/(1+x^2)"},
    {"@deriv(@abs(x), x)", "@recode(x>=0,1,-1)"},
    {"@deriv(@log10(x), x)", "1/(x*log(10))"},
    {"@deriv(@gamma(x), x)", "@gammader(x)"},
    {"@deriv(@gammalog(x), x)", "@digamma(x)"},
    {"@deriv(@digamma(x), x)", "@trigamma(x)"},
    {"@deriv(@cnorm(x), x)", "@dnorm(x)"},
    {"@deriv(@qnorm(x), x)", "1/@dnorm(@qnorm(x))"},
    {"@deriv(@clogistic(x), x)", "@dlogistic(x)"},
    {"@deriv(@logit(x), x)", "@dlogistic(x)"},
    {"@deriv(@cextreme(x), x)", "@dextreme(x)"},
    {"@deriv(@cchisq(x, k), x)", "@dchisq(x,k)"},
    {"@deriv(@cged(x, k), x)", "@dged(x,k)"},
    {"@deriv(@ctdist(x, k), x)", "@dtdist(x,k)"},
    {"@deriv(@cbeta(x, a, b), x)", "@dbeta(x,a,b)"},
    {"@deriv(@cexp(x, a, b), x)", "@dexp(x,a,b)"},
    {"@deriv(@cfdist(x, a, b), x)", "@dfdist(x,a,b)"},
    {"@deriv(@cgamma(x, a, b), x)", "@dgamma(x,a,b)"},
    {"@deriv(@clognorm(x, a, b), x)", "@dlognorm(x,a,b)"},
    {"@deriv(@cchisq(x, k), k)", "@cchisq[0,1](x,k)"},
    {"@deriv(@cbeta(x, a, b), b)", "@cbeta[0,0,1](x,a,b)"},
    // The code chains stop at second order; [1,0,0] after code 2 is 3, not 4.
    {"@deriv(@gammainc(x, y), x)", "@gammaincder(x,y,1)"},
    {"@deriv(@gammainc(x, y), y)", "@gammaincder(x,y,2)"},
    {"@deriv(@gammainc(x, y), x, x)", "@gammaincder(x,y,3)"},
    {"@deriv(@gammainc(x, y), x, y)", "@gammaincder(x,y,4)"},
    {"@deriv(@gammainc(x, y), y, x)", "@gammaincder(x,y,3)"},
    {"@deriv(@gammainc(x, y), y, y)", "@gammaincder(x,y,5)"},
    {"@deriv(@gammainc(x, y), x, x, x)", "@gammaincder[1,0,0](x,y,3)"},
    {"@deriv(@betainc(x, y, z), x)", "@betaincder(x,y,z,1)"},
    {"@deriv(@betainc(x, y, z), y)", "@betaincder(x,y,z,2)"},
    {"@deriv(@betainc(x, y, z), z)", "@betaincder(x,y,z,3)"},
    {"@deriv(@betainc(x, y, z), x, x)", "@betaincder(x,y,z,4)"},
    {"@deriv(@betainc(x, y, z), x, y)", "@betaincder(x,y,z,5)"},
    {"@deriv(@betainc(x, y, z), y, x)", "@betaincder(x,y,z,5)"},
    {"@deriv(@betainc(x, y, z), x, z)", "@betaincder(x,y,z,6)"},
    {"@deriv(@betainc(x, y, z), y, y)", "@betaincder(x,y,z,7)"},
    {"@deriv(@betainc(x, y, z), y, z)", "@betaincder(x,y,z,8)"},
    {"@deriv(@betainc(x, y, z), z, z)", "@betaincder(x,y,z,9)"},
    {"@deriv(@betainc(x, y, z), z, z, z)", "@betaincder[0,0,1,0](x,y,z,9)"},
};

const TextRow kOtherRows[] = {
    {"@HasUnknownDerivs(@deriv(@erf(x), x))", "TRUE"},
    {"@HasUnknownDerivs(@deriv(@sin(x), x))", "FALSE"},
    {"@HasUnknownDerivs(@sin(x))", "FALSE"},
    {"@HasUnknownDerivs(x)", "FALSE"},
    {"@HasUnknownDerivs(@deriv(#1, x))", "FALSE"},
    {"@HasUnknownDerivs(1 + @beta[0,1](a, b))", "TRUE"},
    {"@HasUnknownDerivs(x, y)", "@HasUnknownDerivs(x,y)"},
    {"@derivx(x^3, x, 3)", "{x^3,3*x^2,6*x,6}"},
    {"@derivx(e, x, 0)", "{e}"},
    {"@derivx(e, x, -1)", "{}"},
    {"@derivx(x, x, y)", "@derivx(x,x,y)"},
    {"@derivx(x, x, 2.5)", "@derivx(x,x,2.5)"},
    {"@derivx(x, x)", "@derivx(x,x)"},
};

class FunctionDerivRules : public ExpressionTest {};

TEST_F(FunctionDerivRules, ChainRuleRecordsOrders) { ExpectTexts(kChainRows, 3); }
TEST_F(FunctionDerivRules, EveryCataloguedDerivativeFires) { ExpectTexts(kPatternRows, 3); }
TEST_F(FunctionDerivRules, UnknownDerivativesAndSuccessiveDerivatives) { ExpectTexts(kOtherRows, 3); }

}  // namespace
}  // namespace quillon::testing
