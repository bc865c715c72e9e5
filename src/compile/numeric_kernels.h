// The numeric meaning of catalogued functions on doubles: one function per kernel, the order in
// which sums and products combine their arguments, the special exponents of powers, and the
// table that ties each kernel to its catalogue entry. The stack evaluator and the batch
// evaluator both compute through these, so that they agree bit for bit.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <span>

#include "core/function_def.h"
#include "core/function_table.h"

namespace quillon {

// NA, the missing value: a negative quiet not-a-number.
inline constexpr double kNA = std::bit_cast<double>(uint64_t{0xFFF8000000000000u});

// ---- Sums and products. Up to eight arguments combine in a fixed order (a1 op a0 for two;
// ((a2 op a1) op a3 ... op a(n-1)) op a0 for three to eight); above eight strictly from left
// to right. Hosts compare results bit for bit, so every evaluator combines in this order: arg(k)
// gives argument k, and op combines two, as doubles here or as operands in the batch compiler.
inline constexpr int32_t kUnrolledArguments = 8;

template <class Arg, class Op>
inline auto CombineInOrder(int32_t n, Arg arg, Op op) {
  if (n == 1) return arg(0);
  if (n == 2) return op(arg(1), arg(0));
  if (n > kUnrolledArguments) {
    auto result = op(arg(0), arg(1));
    for (int32_t k = 2; k < n; ++k) result = op(result, arg(k));
    return result;
  }
  auto result = op(arg(2), arg(1));
  for (int32_t k = 3; k < n; ++k) result = op(result, arg(k));
  return op(result, arg(0));
}
inline double SumInOrder(const double* args, int32_t n) {
  return CombineInOrder(n, [args](int32_t k) { return args[k]; }, [](double a, double b) { return a + b; });
}
inline double ProductInOrder(const double* args, int32_t n) {
  return CombineInOrder(n, [args](int32_t k) { return args[k]; }, [](double a, double b) { return a * b; });
}

// ---- Powers. The exponents that canonical forms produce for squares, inverses and roots avoid
// the library power function; the tests are exact and in this order.
inline double PowKernel(double b, double e) {
  if (e == 2) return b * b;
  if (e == 3) return b * (b * b);
  if (e == -1) return 1 / b;
  if (e == -2) return 1 / (b * b);
  if (e == -3) return 1 / (b * b * b);
  if (e == 4) return b * (b * b * b);
  if (e == -4) return 1 / (b * b * b * b);
  if (e == 0.5) return std::sqrt(b);
  if (e == -0.5) return 1 / std::sqrt(b);
  return std::pow(b, e);
}

// ---- Truth values: 1.0 and 0.0; a missing operand gives NA.
inline double Truth(bool value) { return value ? 1.0 : 0.0; }
inline double LtKernel(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNA : Truth(a < b); }
inline double LeKernel(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNA : Truth(a <= b); }
inline double GtKernel(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNA : Truth(a > b); }
inline double GeKernel(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNA : Truth(a >= b); }
inline double EqKernel(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNA : Truth(a == b); }
inline double NeqKernel(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNA : Truth(a != b); }
inline double NotKernel(double a) { return std::isnan(a) ? kNA : Truth(a == 0); }
double AndKernel(const double* args, int32_t n);
double OrKernel(const double* args, int32_t n);
// @recode(c, a, b): a where c is true, b where it is false, NA where c is missing.
double RecodeKernel(const double* args, int32_t n);

// ---- Arithmetic and elementary functions.
inline double MinusKernel(double a, double b) { return a - b; }
inline double DivideKernel(double a, double b) { return a / b; }
inline double UnaryPlusKernel(double a) { return a; }
// A missing value keeps its bits, as it does in the canonical form -1 * a.
inline double UnaryMinusKernel(double a) { return std::isnan(a) ? a : -a; }
inline double SqrtKernel(double a) { return std::sqrt(a); }
inline double InvKernel(double a) { return 1 / a; }
inline double LogKernel(double a) { return std::log(a); }
inline double ExpKernel(double a) { return std::exp(a); }
inline double Log10Kernel(double a) { return std::log10(a); }
// @logx(x, base)
inline double LogxKernel(double a, double base) { return std::log(a) / std::log(base); }
inline double Expm1Kernel(double a) { return std::expm1(a); }
inline double Log1pKernel(double a) { return std::log1p(a); }
// a^b - 1 and (1+a)^b - 1, accurate near 0
double Powm1Kernel(double a, double b);
double Pow1pm1Kernel(double a, double b);
inline double SinKernel(double a) { return std::sin(a); }
inline double CosKernel(double a) { return std::cos(a); }
inline double TanKernel(double a) { return std::tan(a); }
inline double AsinKernel(double a) { return std::asin(a); }
inline double AcosKernel(double a) { return std::acos(a); }
inline double AtanKernel(double a) { return std::atan(a); }
inline double AbsKernel(double a) { return std::fabs(a); }
inline double FloorKernel(double a) { return std::floor(a); }
inline double CeilingKernel(double a) { return std::ceil(a); }
// Halves round away from zero.
inline double RoundKernel(double a) { return std::round(a); }
// Remainder with the sign of the dividend.
inline double ModKernel(double a, double b) { return std::fmod(a, b); }
// @nan(x, y): y where x is missing, else x.
inline double NanKernel(double a, double b) { return std::isnan(a) ? b : a; }
inline double IsnaKernel(double a) { return Truth(std::isnan(a)); }
// Smallest and greatest argument; NA when any is missing.
double PminKernel(const double* args, int32_t n);
double PmaxKernel(const double* args, int32_t n);

// ---- Special functions.
inline double GammaKernel(double a) { return std::tgamma(a); }
inline double GammalogKernel(double a) { return std::lgamma(a); }
inline double FactKernel(double a) { return std::tgamma(a + 1); }
inline double FactlogKernel(double a) { return std::lgamma(a + 1); }
double DigammaKernel(double a);
double TrigammaKernel(double a);
// The derivative of the gamma function.
inline double GammaderKernel(double a) { return std::tgamma(a) * DigammaKernel(a); }
double BetaKernel(double a, double b);
inline double BetalogKernel(double a, double b) { return std::lgamma(a) + std::lgamma(b) - std::lgamma(a + b); }
inline double ErfKernel(double a) { return std::erf(a); }
inline double ErfcKernel(double a) { return std::erfc(a); }

// ---- Distributions without parameters: standard normal, logistic and extreme value (minimum).
inline double CnormKernel(double x) { return 0.5 * std::erfc(-x * 0.70710678118654752440); }
inline double DnormKernel(double x) { return 0.39894228040143267794 * std::exp(-0.5 * x * x); }
double QnormKernel(double p);
inline double ClogisticKernel(double x) { return 1 / (1 + std::exp(-x)); }
inline double DlogisticKernel(double x) {
  const double e = std::exp(-std::fabs(x));
  return e / ((1 + e) * (1 + e));
}
inline double QlogisticKernel(double p) { return std::log(p / (1 - p)); }
inline double CextremeKernel(double x) { return -std::expm1(-std::exp(x)); }
inline double DextremeKernel(double x) { return std::exp(x - std::exp(x)); }
inline double QextremeKernel(double p) { return std::log(-std::log1p(-p)); }

// ---- The table.
// ORDER KERNELFORM: how a kernel reads its argument cells. The batch evaluator dispatches on
// this too; keep both in step.
enum class KernelForm : int32_t {
  Unary,       // f(a0) with exactly one argument, else NA
  Binary,      // f(a0, a1) with exactly two arguments, else NA
  List,        // f(args, n), any count; the kernel checks its own
  FirstOfAny,  // f(a0) whatever the count: log and exp
  PowerOfAny,  // f(a0, a1) with two or more, NA with one: @pow
  KeepAll,     // every argument stays in its cell: @list and @sublist
};

struct NumericKernel {
  const char* function;  // catalogue spelling
  KernelForm form;
  double (*unary)(double) = nullptr;             // Unary, FirstOfAny
  double (*binary)(double, double) = nullptr;    // Binary, PowerOfAny
  double (*list)(const double*, int32_t) = nullptr;  // List
  StackOpFunction stackOp = nullptr;
};

// Every function with a numeric meaning; all other catalogued functions give NA.
std::span<const NumericKernel> NumericKernels();
// The kernel of def, or null when def has none (its value is NA).
const NumericKernel* FindNumericKernel(const FunctionDef* def);
// Sets the StackOp of every catalogued function: its kernel's, or one that leaves NA.
void InstallNumericKernels(FunctionTable& table);
// The StackOp of a function without a numeric meaning: one NA cell.
int32_t MissingStackOp(double* args, int32_t count);

}  // namespace quillon
