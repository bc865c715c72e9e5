// The distributions with parameters: closed forms that hold for particular parameters, quantiles
// that invert their distribution function, densities that are its slope, masses that sum to it,
// and NA outside the domains. Their values reach hosts through both evaluators.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include "compile/distribution_kernels.h"
#include "compile/numeric_kernels.h"
#include "quillon_program.h"
#include "support/expression_test.h"

namespace quillon {
namespace {

using Function = std::function<double(double)>;

struct ClosedForm {
  const char* name;
  Function kernel;
  Function expected;
};

TEST(DistributionKernels, MatchClosedFormsOfParticularParameters) {
  const double pi = std::numbers::pi;
  const ClosedForm forms[] = {
      {"chi-square with 2 degrees", [](double x) { return CchisqKernel(x, 2); },
       [](double x) { return -std::expm1(-x / 2); }},
      {"t with 1 degree (Cauchy)", [](double x) { return CtdistKernel(x - 3, 1); },
       [pi](double x) { return 0.5 + std::atan(x - 3) / pi; }},
      {"t with 2 degrees", [](double x) { return CtdistKernel(x - 3, 2); },
       [](double x) { return 0.5 + (x - 3) / (2 * std::sqrt(2 + (x - 3) * (x - 3))); }},
      {"F with 2 and 2 degrees", [](double x) { return CfdistKernel(x, 2, 2); }, [](double x) { return x / (1 + x); }},
      {"beta(2, 2)", [](double x) { return CbetaKernel(x / 8, 2, 2); },
       [](double x) { return 3 * (x / 8) * (x / 8) - 2 * std::pow(x / 8, 3); }},
      {"beta(2.5, 1)", [](double x) { return CbetaKernel(x / 8, 2.5, 1); }, [](double x) { return std::pow(x / 8, 2.5); }},
      {"lognormal(0, 1)", [](double x) { return ClognormKernel(x, 0, 1); },
       [](double x) { return CnormKernel(std::log(x)); }},
      {"uniform on [1, 5]", [](double x) { return CunifKernel(x, 1, 5); },
       [](double x) { return std::clamp((x - 1) / 4, 0.0, 1.0); }},
      {"t density with 1 degree", [](double x) { return DtdistKernel(x, 1); },
       [pi](double x) { return 1 / (pi * (1 + x * x)); }},
      {"chi-square density with 2 degrees", [](double x) { return DchisqKernel(x, 2); },
       [](double x) { return std::exp(-x / 2) / 2; }},
  };
  for (const ClosedForm& form : forms)
    for (double x = 0.25; x < 8; x += 0.5)
      EXPECT_NEAR(form.kernel(x), form.expected(x), 1e-13) << form.name << " at " << x;
}

struct Family {
  const char* name;
  std::function<double(double x, double a, double b)> cdf, density, quantile;
  double a, b;
};

const Family kFamilies[] = {
    {"chi-square", [](double x, double k, double) { return CchisqKernel(x, k); },
     [](double x, double k, double) { return DchisqKernel(x, k); },
     [](double p, double k, double) { return QchisqKernel(p, k); }, 3.5, 0},
    {"chi-square, one degree", [](double x, double k, double) { return CchisqKernel(x, k); },
     [](double x, double k, double) { return DchisqKernel(x, k); },
     [](double p, double k, double) { return QchisqKernel(p, k); }, 1, 0},
    {"t", [](double x, double v, double) { return CtdistKernel(x, v); },
     [](double x, double v, double) { return DtdistKernel(x, v); },
     [](double p, double v, double) { return QtdistKernel(p, v); }, 4.5, 0},
    {"F", CfdistKernel, DfdistKernel, QfdistKernel, 3, 7},
    {"beta", CbetaKernel, DbetaKernel, QbetaKernel, 0.7, 2.5},
    {"lognormal", ClognormKernel, DlognormKernel, QlognormKernel, 0.3, 0.8},
    {"uniform", CunifKernel, DunifKernel, QunifKernel, -2, 3},
};

TEST(DistributionKernels, QuantilesInvertTheDistributionFunction) {
  for (const Family& f : kFamilies)
    for (double p : {1e-9, 0.001, 0.05, 0.3, 0.5, 0.7, 0.95, 0.999, 1 - 1e-9}) {
      const double x = f.quantile(p, f.a, f.b);
      EXPECT_NEAR(f.cdf(x, f.a, f.b), p, 1e-12 + 1e-10 * std::min(p, 1 - p)) << f.name << " at p = " << p;
    }
}

TEST(DistributionKernels, DensitiesAreTheSlopeOfTheDistributionFunction) {
  for (const Family& f : kFamilies)
    for (double p : {0.05, 0.3, 0.5, 0.7, 0.95}) {
      const double x = f.quantile(p, f.a, f.b), h = 1e-5 * std::max(1.0, std::fabs(x));
      const double slope = (f.cdf(x + h, f.a, f.b) - f.cdf(x - h, f.a, f.b)) / (2 * h);
      EXPECT_NEAR(f.density(x, f.a, f.b), slope, 1e-6 * std::max(1.0, slope)) << f.name << " at x = " << x;
    }
}

TEST(DistributionKernels, DiscreteDistributionFunctionsSumTheirMasses) {
  double binomial = 0, poisson = 0;
  for (int k = 0; k <= 30; ++k) {
    binomial += DbinomKernel(k, 30, 0.35);
    poisson += DpoissonKernel(k, 6.5);
    EXPECT_NEAR(CbinomKernel(k + 0.5, 30, 0.35), binomial, 1e-13) << k;
    EXPECT_NEAR(CpoissonKernel(k, 6.5), poisson, 1e-13) << k;
  }
  EXPECT_EQ(DbinomKernel(2.5, 30, 0.35), 0);
  EXPECT_EQ(CbinomKernel(-1, 30, 0.35), 0);
  EXPECT_EQ(CpoissonKernel(3, 0), 1);
}

TEST(DistributionKernels, GiveNAOutsideTheirDomains) {
  const double rows[] = {
      CchisqKernel(1, 0),     CchisqKernel(1, -2),     QchisqKernel(1.5, 3),    CtdistKernel(0, 0),
      QtdistKernel(-0.1, 3),  CfdistKernel(1, 0, 3),   CbetaKernel(0.5, 1, -1), QbetaKernel(2, 1, 1),
      CbinomKernel(1, 2.5, 0.5), DbinomKernel(1, 3, 1.5), CpoissonKernel(1, -1), ClognormKernel(1, 0, 0),
      CunifKernel(1, 3, 3),   QunifKernel(0.5, 3, 1),  CchisqKernel(NA(), 2),   DtdistKernel(1, NA()),
  };
  for (size_t i = 0; i < std::size(rows); ++i) EXPECT_TRUE(IsNA(rows[i])) << "row " << i;
}

}  // namespace

namespace testing {
namespace {

// The value of text, whose one symbol (if any) is x, from @subexpr with mathexpr_stackeval and
// from the batch evaluator; the two must agree bit for bit.
class DistributionValues : public ExpressionTest {
 protected:
  double Compute(const std::string& text, double x) {
    mathexpr* prepared = mathexpr_create(table, ("@subexpr(" + text + ")").c_str());
    mathexpr_evaluate(prepared, 3);
    double stack[64] = {};
    const int32_t cells = mathexpr_stackeval(prepared, stack, &x);
    mathexpr_destroy(prepared);
    mathexpr* e = mathexpr_create(table, text.c_str());
    quillon_program* program = quillon_program_create(e);
    mathexpr_destroy(e);
    const double* inputs[] = {&x};
    double batch = 0;
    double* outputs[] = {&batch};
    EXPECT_EQ(quillon_program_evaluate(program, 1, inputs, outputs), 0) << text;
    quillon_program_destroy(program);
    EXPECT_EQ(std::bit_cast<uint64_t>(batch), std::bit_cast<uint64_t>(stack[cells - 1])) << text;
    return batch;
  }
};

// Both evaluators reach the kernels by name, and a call with the wrong number of arguments is NA.
TEST_F(DistributionValues, ReachHostsThroughTheEvaluators) {
  EXPECT_NEAR(Compute("@qchisq(0.95, 1)", 0), 3.841458820694124, 1e-13);
  EXPECT_NEAR(Compute("@ctdist(x, 10)", 2.228138851986274), 0.975, 1e-13);
  EXPECT_NEAR(Compute("@cbinom(x, 10, 0.3)", 3), 0.6496107184, 1e-10);
  EXPECT_TRUE(IsNA(Compute("@cbeta(x, 2)", 0.5)));
}

}  // namespace
}  // namespace testing
}  // namespace quillon
