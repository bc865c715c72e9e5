// Distributions with parameters whose definition is standard: chi-square, Student's t, F, beta,
// binomial, Poisson, lognormal and uniform. The c function is the distribution function, d the
// density (the mass for the discrete ones) and q the quantile. A parameter outside its domain, a
// probability outside [0, 1] or a missing argument gives NA.
#pragma once

namespace quillon {

// P(a, x) and Q(a, x) = 1 - P(a, x), the regularized incomplete gamma functions, for a > 0 and
// x >= 0; each tail is computed directly, so that a small one keeps its precision.
double RegularizedGammaLower(double a, double x);
double RegularizedGammaUpper(double a, double x);
// I_x(a, b), the regularized incomplete beta function, for a, b > 0 and 0 <= x <= 1.
double RegularizedBeta(double x, double a, double b);

double CchisqKernel(double x, double k);
double DchisqKernel(double x, double k);
double QchisqKernel(double p, double k);
double CtdistKernel(double x, double v);
double DtdistKernel(double x, double v);
double QtdistKernel(double p, double v);
double CpoissonKernel(double x, double mu);
double DpoissonKernel(double x, double mu);

double CfdistKernel(double x, double v1, double v2);
double DfdistKernel(double x, double v1, double v2);
double QfdistKernel(double p, double v1, double v2);
double CbetaKernel(double x, double a, double b);
double DbetaKernel(double x, double a, double b);
double QbetaKernel(double p, double a, double b);
double CbinomKernel(double x, double trials, double p);
double DbinomKernel(double x, double trials, double p);
// Lognormal: log x is normal with mean mu and deviation s.
double ClognormKernel(double x, double mu, double s);
double DlognormKernel(double x, double mu, double s);
double QlognormKernel(double p, double mu, double s);
double CunifKernel(double x, double low, double high);
double DunifKernel(double x, double low, double high);
double QunifKernel(double p, double low, double high);

}  // namespace quillon
