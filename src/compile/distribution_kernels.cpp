// The incomplete gamma and beta functions, and the distributions built on them.
#include "compile/distribution_kernels.h"

#include <cmath>
#include <numbers>

#include "compile/numeric_kernels.h"

namespace quillon {
namespace {

constexpr double kTiny = 1e-300;
constexpr double kEpsilon = 1e-16;
constexpr int kMaxTerms = 100000;
// Past this, x^a e^-x / Gamma(a) and its beta twin lose digits to cancellation and the
// expansions need more than kMaxTerms terms: degrees of freedom, shapes, means and counts of
// trials above it give NA rather than a wrong value.
constexpr double kMaxParameter = 1e6;

bool AnyMissing(double a, double b, double c = 0) { return std::isnan(a) || std::isnan(b) || std::isnan(c); }
bool IsProbability(double p) { return p >= 0 && p <= 1; }
bool IsShape(double a) { return a > 0 && a <= kMaxParameter; }
bool IsCount(double n) { return n >= 0 && std::floor(n) == n && std::isfinite(n); }
bool IsTrials(double n) { return IsCount(n) && n <= kMaxParameter; }

// Lentz's method keeps a continued fraction's partial values away from zero.
double AwayFromZero(double v) { return std::fabs(v) < kTiny ? kTiny : v; }

// x^a e^-x / Gamma(a): the factor in front of both incomplete gamma expansions.
double GammaFront(double a, double x) { return std::exp(a * std::log(x) - x - std::lgamma(a)); }

// P(a, x) by its power series; converges fast for x below a + 1.
double GammaSeries(double a, double x) {
  double term = 1 / a, sum = term;
  for (int i = 1; i < kMaxTerms && std::fabs(term) > std::fabs(sum) * kEpsilon; ++i) {
    term *= x / (a + i);
    sum += term;
  }
  return sum * GammaFront(a, x);
}

// Q(a, x) by its continued fraction; converges fast for x above a + 1.
double GammaFraction(double a, double x) {
  double b = x + 1 - a, c = 1 / kTiny, d = 1 / AwayFromZero(b), h = d;
  for (int i = 1; i < kMaxTerms; ++i) {
    const double an = -i * (i - a);
    b += 2;
    d = 1 / AwayFromZero(an * d + b);
    c = AwayFromZero(b + an / c);
    h *= d * c;
    if (std::fabs(d * c - 1) < kEpsilon) break;
  }
  return h * GammaFront(a, x);
}

// The continued fraction of I_x(a, b), for x below (a + 1) / (a + b + 2).
double BetaFraction(double x, double a, double b) {
  double c = 1, d = 1 / AwayFromZero(1 - (a + b) * x / (a + 1)), h = d;
  for (int m = 1; m < kMaxTerms; ++m) {
    const double even = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m));
    d = 1 / AwayFromZero(1 + even * d);
    c = AwayFromZero(1 + even / c);
    h *= d * c;
    const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1));
    d = 1 / AwayFromZero(1 + odd * d);
    c = AwayFromZero(1 + odd / c);
    h *= d * c;
    if (std::fabs(d * c - 1) < kEpsilon) break;
  }
  return h;
}

// x^a (1-x)^b / (a B(a, b)).
double BetaFront(double x, double a, double b) {
  return std::exp(a * std::log(x) + b * std::log1p(-x) - BetalogKernel(a, b)) / a;
}

// The point where below(x) turns false, on [low, high); an infinite high is first brought down
// to a power of two that covers it. Bisection ends when the midpoint no longer moves.
template <class Below>
double Invert(Below below, double low, double high) {
  if (std::isinf(high)) {
    high = 1;
    while (below(high) && high < 1e300) high *= 2;
  }
  for (;;) {
    const double mid = low + (high - low) / 2;
    if (mid <= low || mid >= high) return high;
    (below(mid) ? low : high) = mid;
  }
}

// Upper tail of Student's t at x >= 0.
double TdistTail(double x, double v) { return 0.5 * RegularizedBeta(v / (v + x * x), v / 2, 0.5); }

double LognormZ(double x, double mu, double s) { return (std::log(x) - mu) / s; }

}  // namespace

double RegularizedGammaLower(double a, double x) {
  if (x <= 0) return 0;
  return x < a + 1 ? GammaSeries(a, x) : 1 - GammaFraction(a, x);
}

double RegularizedGammaUpper(double a, double x) {
  if (x <= 0) return 1;
  return x < a + 1 ? 1 - GammaSeries(a, x) : GammaFraction(a, x);
}

double RegularizedBeta(double x, double a, double b) {
  if (x <= 0) return 0;
  if (x >= 1) return 1;
  if (x < (a + 1) / (a + b + 2)) return BetaFront(x, a, b) * BetaFraction(x, a, b);
  return 1 - BetaFront(1 - x, b, a) * BetaFraction(1 - x, b, a);
}

// ---- Chi-square with k degrees of freedom.
double CchisqKernel(double x, double k) {
  if (AnyMissing(x, k) || !IsShape(k)) return kNA;
  return RegularizedGammaLower(k / 2, x / 2);
}

double DchisqKernel(double x, double k) {
  if (AnyMissing(x, k) || !IsShape(k)) return kNA;
  if (x < 0) return 0;
  if (x == 0) return k < 2 ? HUGE_VAL : (k == 2 ? 0.5 : 0);
  return std::exp((k / 2 - 1) * std::log(x) - x / 2 - k / 2 * std::numbers::ln2 - std::lgamma(k / 2));
}

double QchisqKernel(double p, double k) {
  if (AnyMissing(p, k) || !IsShape(k) || !IsProbability(p)) return kNA;
  if (p == 1) return HUGE_VAL;
  // Above the median the upper tail is the exact one to compare.
  if (p > 0.5) return Invert([&](double x) { return RegularizedGammaUpper(k / 2, x / 2) > 1 - p; }, 0, HUGE_VAL);
  return Invert([&](double x) { return RegularizedGammaLower(k / 2, x / 2) < p; }, 0, HUGE_VAL);
}

// ---- Student's t with v degrees of freedom.
double CtdistKernel(double x, double v) {
  if (AnyMissing(x, v) || !IsShape(v)) return kNA;
  const double tail = TdistTail(std::fabs(x), v);
  return x > 0 ? 1 - tail : tail;
}

double DtdistKernel(double x, double v) {
  if (AnyMissing(x, v) || !IsShape(v)) return kNA;
  return std::exp(std::lgamma((v + 1) / 2) - std::lgamma(v / 2) - 0.5 * std::log(v * std::numbers::pi) -
                  (v + 1) / 2 * std::log1p(x * x / v));
}

double QtdistKernel(double p, double v) {
  if (AnyMissing(p, v) || !IsShape(v) || !IsProbability(p)) return kNA;
  if (p == 0.5) return 0;
  const double tail = p < 0.5 ? p : 1 - p;
  const double x = tail == 0 ? HUGE_VAL : Invert([&](double t) { return TdistTail(t, v) > tail; }, 0, HUGE_VAL);
  return p < 0.5 ? -x : x;
}

// ---- Poisson with mean mu; x is rounded down to a count.
double CpoissonKernel(double x, double mu) {
  if (AnyMissing(x, mu) || !(mu >= 0 && mu <= kMaxParameter)) return kNA;
  if (x < 0) return 0;
  if (mu == 0 || std::isinf(x)) return 1;
  return RegularizedGammaUpper(std::floor(x) + 1, mu);
}

double DpoissonKernel(double x, double mu) {
  if (AnyMissing(x, mu) || !(mu >= 0 && mu <= kMaxParameter)) return kNA;
  if (!IsCount(x)) return 0;
  if (mu == 0) return x == 0 ? 1 : 0;
  return std::exp(x * std::log(mu) - mu - std::lgamma(x + 1));
}

// ---- F with v1 and v2 degrees of freedom.
double CfdistKernel(double x, double v1, double v2) {
  if (AnyMissing(x, v1, v2) || !IsShape(v1) || !IsShape(v2)) return kNA;
  if (x <= 0) return 0;
  if (std::isinf(x)) return 1;
  return RegularizedBeta(v1 * x / (v1 * x + v2), v1 / 2, v2 / 2);
}

double DfdistKernel(double x, double v1, double v2) {
  if (AnyMissing(x, v1, v2) || !IsShape(v1) || !IsShape(v2)) return kNA;
  if (x < 0) return 0;
  if (x == 0) return v1 < 2 ? HUGE_VAL : (v1 == 2 ? 1 : 0);
  return std::exp(v1 / 2 * std::log(v1) + v2 / 2 * std::log(v2) + (v1 / 2 - 1) * std::log(x) -
                  (v1 + v2) / 2 * std::log(v2 + v1 * x) - BetalogKernel(v1 / 2, v2 / 2));
}

double QfdistKernel(double p, double v1, double v2) {
  if (AnyMissing(p, v1, v2) || !IsShape(v1) || !IsShape(v2) || !IsProbability(p)) return kNA;
  if (p == 1) return HUGE_VAL;
  if (p > 0.5)
    return Invert([&](double x) { return RegularizedBeta(v2 / (v1 * x + v2), v2 / 2, v1 / 2) > 1 - p; }, 0, HUGE_VAL);
  return Invert([&](double x) { return RegularizedBeta(v1 * x / (v1 * x + v2), v1 / 2, v2 / 2) < p; }, 0, HUGE_VAL);
}

// ---- Beta with shapes a and b.
double CbetaKernel(double x, double a, double b) {
  if (AnyMissing(x, a, b) || !IsShape(a) || !IsShape(b)) return kNA;
  return RegularizedBeta(x, a, b);
}

double DbetaKernel(double x, double a, double b) {
  if (AnyMissing(x, a, b) || !IsShape(a) || !IsShape(b)) return kNA;
  if (x < 0 || x > 1) return 0;
  if (x == 0) return a < 1 ? HUGE_VAL : (a == 1 ? b : 0);
  if (x == 1) return b < 1 ? HUGE_VAL : (b == 1 ? a : 0);
  return std::exp((a - 1) * std::log(x) + (b - 1) * std::log1p(-x) - BetalogKernel(a, b));
}

double QbetaKernel(double p, double a, double b) {
  if (AnyMissing(p, a, b) || !IsShape(a) || !IsShape(b) || !IsProbability(p)) return kNA;
  if (p > 0.5) return Invert([&](double x) { return RegularizedBeta(1 - x, b, a) > 1 - p; }, 0, 1);
  return Invert([&](double x) { return RegularizedBeta(x, a, b) < p; }, 0, 1);
}

// ---- Binomial with a count of trials and a probability; x is rounded down to a count.
double CbinomKernel(double x, double trials, double p) {
  if (AnyMissing(x, trials, p) || !IsTrials(trials) || !IsProbability(p)) return kNA;
  const double k = std::floor(x);
  if (k < 0) return 0;
  if (k >= trials) return 1;
  return RegularizedBeta(1 - p, trials - k, k + 1);
}

double DbinomKernel(double x, double trials, double p) {
  if (AnyMissing(x, trials, p) || !IsTrials(trials) || !IsProbability(p)) return kNA;
  if (!IsCount(x) || x > trials) return 0;
  if (p == 0) return x == 0 ? 1 : 0;
  if (p == 1) return x == trials ? 1 : 0;
  return std::exp(std::lgamma(trials + 1) - std::lgamma(x + 1) - std::lgamma(trials - x + 1) + x * std::log(p) +
                  (trials - x) * std::log1p(-p));
}

// ---- Lognormal: log x is normal with mean mu and deviation s.
double ClognormKernel(double x, double mu, double s) {
  if (AnyMissing(x, mu, s) || !(s > 0)) return kNA;
  return x <= 0 ? 0 : CnormKernel(LognormZ(x, mu, s));
}

double DlognormKernel(double x, double mu, double s) {
  if (AnyMissing(x, mu, s) || !(s > 0)) return kNA;
  return x <= 0 ? 0 : DnormKernel(LognormZ(x, mu, s)) / (x * s);
}

double QlognormKernel(double p, double mu, double s) {
  if (AnyMissing(p, mu, s) || !(s > 0) || !IsProbability(p)) return kNA;
  return std::exp(mu + s * QnormKernel(p));
}

// ---- Uniform on [low, high].
double CunifKernel(double x, double low, double high) {
  if (AnyMissing(x, low, high) || !(low < high)) return kNA;
  if (x <= low) return 0;
  return x >= high ? 1 : (x - low) / (high - low);
}

double DunifKernel(double x, double low, double high) {
  if (AnyMissing(x, low, high) || !(low < high)) return kNA;
  return x >= low && x <= high ? 1 / (high - low) : 0;
}

double QunifKernel(double p, double low, double high) {
  if (AnyMissing(p, low, high) || !(low < high) || !IsProbability(p)) return kNA;
  return low + p * (high - low);
}

}  // namespace quillon
