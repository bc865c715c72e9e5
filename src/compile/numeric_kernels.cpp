// The kernels that are more than a line, the StackOps made from the kernels, and the table that
// ties each kernel to its catalogue entry.
#include "compile/numeric_kernels.h"

#include <cstring>
#include <numbers>

#include "compile/distribution_kernels.h"

namespace quillon {

double AndKernel(const double* args, int32_t n) {
  bool all = true;
  for (int32_t i = 0; i < n; ++i) {
    if (std::isnan(args[i])) return kNA;
    all = all && args[i] != 0;
  }
  return Truth(all);
}

double OrKernel(const double* args, int32_t n) {
  bool any = false;
  for (int32_t i = 0; i < n; ++i) {
    if (std::isnan(args[i])) return kNA;
    any = any || args[i] != 0;
  }
  return Truth(any);
}

double RecodeKernel(const double* args, int32_t n) {
  if (n != 3 || std::isnan(args[0])) return kNA;
  return args[0] != 0 ? args[1] : args[2];
}

double PminKernel(const double* args, int32_t n) {
  double least = args[0];
  for (int32_t i = 0; i < n; ++i) {
    if (std::isnan(args[i])) return kNA;
    if (args[i] < least) least = args[i];
  }
  return least;
}

double PmaxKernel(const double* args, int32_t n) {
  double greatest = args[0];
  for (int32_t i = 0; i < n; ++i) {
    if (std::isnan(args[i])) return kNA;
    if (args[i] > greatest) greatest = args[i];
  }
  return greatest;
}

double Powm1Kernel(double a, double b) {
  return a > 0 ? std::expm1(b * std::log(a)) : std::pow(a, b) - 1;
}

double Pow1pm1Kernel(double a, double b) {
  return a > -1 ? std::expm1(b * std::log1p(a)) : std::pow(1 + a, b) - 1;
}

namespace {

bool IsPole(double a) { return a <= 0 && std::floor(a) == a; }

}  // namespace

// Recurrence up to 10, then the asymptotic series; reflection below 0. The reflection recurses
// once: 1 - a is above 1.
double DigammaKernel(double a) {
  if (std::isnan(a) || IsPole(a)) return kNA;
  if (a < 0) return DigammaKernel(1 - a) - std::numbers::pi / std::tan(std::numbers::pi * a);
  double result = 0;
  for (; a < 10; a += 1) result -= 1 / a;
  const double f = 1 / (a * a);
  return result + std::log(a) - 0.5 / a -
         f * (1.0 / 12 - f * (1.0 / 120 - f * (1.0 / 252 - f * (1.0 / 240 - f / 132))));
}

double TrigammaKernel(double a) {
  if (std::isnan(a) || IsPole(a)) return kNA;
  if (a < 0) {
    const double s = std::numbers::pi / std::sin(std::numbers::pi * a);
    return -TrigammaKernel(1 - a) + s * s;
  }
  double result = 0;
  for (; a < 10; a += 1) result += 1 / (a * a);
  const double f = 1 / (a * a);
  return result + 1 / a + f / 2 + f / a * (1.0 / 6 - f * (1.0 / 30 - f * (1.0 / 42 - f * (1.0 / 30 - f * 5 / 66))));
}

double BetaKernel(double a, double b) {
  if (a > 0 && b > 0) return std::exp(BetalogKernel(a, b));
  return std::tgamma(a) * std::tgamma(b) / std::tgamma(a + b);
}

// A rational first guess in three regions, then one Halley step on the normal distribution.
double QnormKernel(double p) {
  if (std::isnan(p) || p < 0 || p > 1) return kNA;
  if (p == 0) return -HUGE_VAL;
  if (p == 1) return HUGE_VAL;
  static constexpr double a[] = {-3.969683028665376e+01, 2.209460984245205e+02, -2.759285104469687e+02,
                                 1.383577518672690e+02,  -3.066479806614716e+01, 2.506628277459239e+00};
  static constexpr double b[] = {-5.447609879822406e+01, 1.615858368580409e+02, -1.556989798598866e+02,
                                 6.680131188771972e+01,  -1.328068155288572e+01};
  static constexpr double c[] = {-7.784894002430293e-03, -3.223964580411365e-01, -2.400758277161838e+00,
                                 -2.549732539343734e+00, 4.374664141464968e+00,  2.938163982698783e+00};
  static constexpr double d[] = {7.784695709041462e-03, 3.224671290700398e-01, 2.445134137142996e+00,
                                 3.754408661907416e+00};
  constexpr double low = 0.02425;
  double x;
  if (p < low || p > 1 - low) {
    const double q = std::sqrt(-2 * std::log(p < low ? p : 1 - p));
    x = (((((c[0] * q + c[1]) * q + c[2]) * q + c[3]) * q + c[4]) * q + c[5]) /
        ((((d[0] * q + d[1]) * q + d[2]) * q + d[3]) * q + 1);
    if (p > 1 - low) x = -x;
  } else {
    const double q = p - 0.5, r = q * q;
    x = (((((a[0] * r + a[1]) * r + a[2]) * r + a[3]) * r + a[4]) * r + a[5]) * q /
        (((((b[0] * r + b[1]) * r + b[2]) * r + b[3]) * r + b[4]) * r + 1);
  }
  const double e = CnormKernel(x) - p;
  const double u = e * std::sqrt(2 * std::numbers::pi) * std::exp(x * x / 2);
  return x - u / (1 + x * u / 2);
}

int32_t MissingStackOp(double* args, int32_t) {
  args[0] = kNA;
  return 0;
}

namespace {

// ---- StackOps made from kernels: the result goes to the first argument's cell.
template <double (*F)(double)>
int32_t UnaryOp(double* args, int32_t n) {
  args[0] = n == 1 ? F(args[0]) : kNA;
  return 0;
}
template <double (*F)(double, double)>
int32_t BinaryOp(double* args, int32_t n) {
  args[0] = n == 2 ? F(args[0], args[1]) : kNA;
  return 0;
}
template <double (*F)(const double*, int32_t)>
int32_t ListOp(double* args, int32_t n) {
  args[0] = F(args, n);
  return 0;
}
template <double (*F)(double)>
int32_t FirstOfAnyOp(double* args, int32_t) {
  args[0] = F(args[0]);
  return 0;
}
template <double (*F)(double, double)>
int32_t PowerOfAnyOp(double* args, int32_t n) {
  args[0] = n >= 2 ? F(args[0], args[1]) : kNA;
  return 0;
}
int32_t KeepAllOp(double*, int32_t n) { return n - 1; }

// ---- Rows, one maker per form, so that each row names its kernel once.
template <double (*F)(double)>
constexpr NumericKernel Unary(const char* function) {
  return {.function = function, .form = KernelForm::Unary, .unary = F, .stackOp = UnaryOp<F>};
}
template <double (*F)(double, double)>
constexpr NumericKernel Binary(const char* function) {
  return {.function = function, .form = KernelForm::Binary, .binary = F, .stackOp = BinaryOp<F>};
}
template <double (*F)(const double*, int32_t)>
constexpr NumericKernel List(const char* function) {
  return {.function = function, .form = KernelForm::List, .list = F, .stackOp = ListOp<F>};
}
template <double (*F)(double)>
constexpr NumericKernel FirstOfAny(const char* function) {
  return {.function = function, .form = KernelForm::FirstOfAny, .unary = F, .stackOp = FirstOfAnyOp<F>};
}
// Three arguments, as the distributions with two parameters take them; any other count is NA.
template <double (*F)(double, double, double)>
double OfThree(const double* args, int32_t n) {
  return n == 3 ? F(args[0], args[1], args[2]) : kNA;
}
template <double (*F)(double, double, double)>
constexpr NumericKernel Ternary(const char* function) {
  return List<OfThree<F>>(function);
}
template <double (*F)(double, double)>
constexpr NumericKernel PowerOfAny(const char* function) {
  return {.function = function, .form = KernelForm::PowerOfAny, .binary = F, .stackOp = PowerOfAnyOp<F>};
}
constexpr NumericKernel KeepAll(const char* function) {
  return {.function = function, .form = KernelForm::KeepAll, .stackOp = KeepAllOp};
}

// In the order of the catalogue. Random, series, date, sample and text functions have no value
// of their own at one observation and stay out.
const NumericKernel kKernels[] = {
    // ---- Operators and not
    KeepAll("@list"),
    List<OrKernel>("@or"),
    List<AndKernel>("@and"),
    Binary<LtKernel>("@lt"),
    Binary<LeKernel>("@le"),
    Binary<GtKernel>("@gt"),
    Binary<GeKernel>("@ge"),
    Binary<EqKernel>("@eq"),
    Binary<NeqKernel>("@neq"),
    Unary<NotKernel>("not"),
    List<SumInOrder>("@plus"),
    Binary<MinusKernel>("@minus"),
    List<ProductInOrder>("@times"),
    Binary<DivideKernel>("@divide"),
    Unary<UnaryPlusKernel>("@UnaryPlus"),
    Unary<UnaryMinusKernel>("@UnaryMinus"),
    PowerOfAny<PowKernel>("@pow"),
    // ---- Arithmetic and elementary functions
    Unary<SqrtKernel>("@sqrt"),
    Unary<InvKernel>("@inv"),
    FirstOfAny<LogKernel>("log"),
    FirstOfAny<ExpKernel>("exp"),
    Unary<Log10Kernel>("@log10"),
    Binary<LogxKernel>("@logx"),
    Unary<Expm1Kernel>("@expm1"),
    Unary<Log1pKernel>("@log1p"),
    Binary<Powm1Kernel>("@powm1"),
    Binary<Pow1pm1Kernel>("@pow1pm1"),
    Unary<SinKernel>("@sin"),
    Unary<CosKernel>("@cos"),
    Unary<TanKernel>("@tan"),
    Unary<AsinKernel>("@asin"),
    Unary<AcosKernel>("@acos"),
    Unary<AtanKernel>("@atan"),
    Unary<AbsKernel>("@abs"),
    Unary<FloorKernel>("@floor"),
    Unary<CeilingKernel>("@ceiling"),
    Unary<RoundKernel>("@round"),
    Binary<ModKernel>("@mod"),
    Binary<NanKernel>("@nan"),
    List<RecodeKernel>("@recode"),
    Unary<IsnaKernel>("@isna"),
    List<PminKernel>("@pmin"),
    List<PmaxKernel>("@pmax"),
    // ---- Special functions
    Unary<FactKernel>("@fact"),
    Unary<FactlogKernel>("@factlog"),
    Unary<GammaKernel>("@gamma"),
    Unary<GammaderKernel>("@gammader"),
    Unary<GammalogKernel>("@gammalog"),
    Unary<DigammaKernel>("@digamma"),
    Unary<TrigammaKernel>("@trigamma"),
    Binary<BetaKernel>("@beta"),
    Binary<BetalogKernel>("@betalog"),
    Unary<ErfKernel>("@erf"),
    Unary<ErfcKernel>("@erfc"),
    Unary<ClogisticKernel>("@logit"),
    // ---- Distributions without parameters
    Unary<CextremeKernel>("@cextreme"),
    Unary<DextremeKernel>("@dextreme"),
    Unary<QextremeKernel>("@qextreme"),
    Unary<ClogisticKernel>("@clogistic"),
    Unary<DlogisticKernel>("@dlogistic"),
    Unary<QlogisticKernel>("@qlogistic"),
    Unary<CnormKernel>("@cnorm"),
    Unary<DnormKernel>("@dnorm"),
    Unary<QnormKernel>("@qnorm"),
    // ---- Distributions with parameters
    Ternary<CbetaKernel>("@cbeta"),
    Ternary<DbetaKernel>("@dbeta"),
    Ternary<QbetaKernel>("@qbeta"),
    Ternary<CbinomKernel>("@cbinom"),
    Ternary<DbinomKernel>("@dbinom"),
    Binary<CchisqKernel>("@cchisq"),
    Binary<DchisqKernel>("@dchisq"),
    Binary<QchisqKernel>("@qchisq"),
    Ternary<CfdistKernel>("@cfdist"),
    Ternary<DfdistKernel>("@dfdist"),
    Ternary<QfdistKernel>("@qfdist"),
    Ternary<ClognormKernel>("@clognorm"),
    Ternary<DlognormKernel>("@dlognorm"),
    Ternary<QlognormKernel>("@qlognorm"),
    Binary<CpoissonKernel>("@cpoisson"),
    Binary<DpoissonKernel>("@dpoisson"),
    Binary<CtdistKernel>("@ctdist"),
    Binary<DtdistKernel>("@dtdist"),
    Binary<QtdistKernel>("@qtdist"),
    Ternary<CunifKernel>("@cunif"),
    Ternary<DunifKernel>("@dunif"),
    Ternary<QunifKernel>("@qunif"),
    // ---- Compilation
    KeepAll("@sublist"),
};

}  // namespace

std::span<const NumericKernel> NumericKernels() { return kKernels; }

const NumericKernel* FindNumericKernel(const FunctionDef* def) {
  for (const NumericKernel& kernel : kKernels)
    if (std::strcmp(kernel.function, def->name) == 0) return &kernel;
  return nullptr;
}

void InstallNumericKernels(FunctionTable& table) {
  table.ForEach([](FunctionDef& def) {
    const NumericKernel* kernel = FindNumericKernel(&def);
    def.StackOp = kernel != nullptr ? kernel->stackOp : MissingStackOp;
  });
}

}  // namespace quillon
