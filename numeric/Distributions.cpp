#include "numeric/Distributions.h"

#include <cmath>

#include "numeric/CheckedKernels.h"
#include "numeric/simd/ShortPi.h"

namespace vk {
namespace {

using Number = CheckedNumber;

// QUIRK: a short decimal on purpose, like the short pi.
constexpr double kNormalFactor = 0.3989423;
// Keeps logarithms away from zero.
constexpr double kE15 = 1E-15;

Number L(Number x) {
  return CheckedKernels::lnGamma(x);
}

Number magnitude(double x) {
  return abs(Number(x));
}

Number upperTail(Number z) {
  return CheckedKernels::complementaryError(z / std::sqrt(2.0)) / 2;
}

}  // namespace

Evaluation binomialDensity(double kk, double nn, double pp) {
  return evaluateChecked([&] {
    const Number k = magnitude(kk);
    const Number n = magnitude(nn);
    const Number p = magnitude(pp) + kE15;
    return exp(L(n + 1) - L(n - k + 1) - L(k + 1) + k * log(p) + (n - k) * log(1 - p));
  });
}

Evaluation binomialCumulative(double kk, double nn, double pp, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) -> Number {
    const Number k = magnitude(kk);
    const Number n = magnitude(nn);
    Number p = magnitude(pp) + kE15;
    if (p > 1) p = 1;
    if (k == 0) return checked::finite(elementary::pow((1 - p).value(), n.value()));
    if (k == n) return 1;
    return 1 - kernels.incompleteBeta(k + 1, n - k, p);
  });
}

Evaluation poissonDensity(double xx, double mm) {
  return evaluateChecked([&]() -> Number {
    const Number x = magnitude(xx);
    const Number m = magnitude(mm);
    if (m == 0) return x == 0 ? 1 : 0;
    return exp(x * log(m) - m - L(x + 1));
  });
}

Evaluation poissonCumulative(double xx, double mm, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) -> Number {
    const Number x = magnitude(xx);
    const Number m = magnitude(mm);
    if (m == 0) return 1;
    return kernels.upperGamma(x + 1, m);
  });
}

Evaluation normalDensity(double x, double m, double sigma) {
  return evaluateChecked([&] {
    const Number z = (Number(x) - m) / sigma;
    return exp(-z * z / 2) * kNormalFactor / sigma;
  });
}

Evaluation normalCumulative(double x, double m, double sigma) {
  return evaluateChecked([&] { return 1 - upperTail((Number(x) - m) / sigma); });
}

Evaluation chiSquareDensity(double x, double n) {
  return evaluateChecked([&] {
    Number t = abs(Number(x) / 2);
    const Number a = abs(Number(n) / 2);
    if (t == 0) t = kE15;
    return exp(a * log(t) - t - L(a)) * 0.5 / t;
  });
}

Evaluation chiSquareCumulative(double x, double n, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) {
    return 1 - kernels.upperGamma(abs(Number(n) / 2), abs(Number(x) / 2));
  });
}

Evaluation studentDensity(double x, double n) {
  return evaluateChecked([&] {
    const Number v = magnitude(n);
    const Number a = v / 2;
    const Number t2 = Number(x) * x;
    return exp(L(a + 0.5) - L(a) - (a + 0.5) * log(1 + t2 / v)) / sqrt(v * kShortPi);
  });
}

Evaluation studentCumulative(double x, double n, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) {
    const Number a = magnitude(n) / 2;
    const Number c = 0.5 / a;
    const Number t2 = Number(x) * x + kE15;
    const Number w = 1 / (1 + t2 * c);
    const Number tail = kernels.incompleteBeta(a, 0.5, w) / 2;
    return x > 0 ? 1 - tail : tail;
  });
}

Evaluation fisherDensity(double x, double m, double n) {
  return evaluateChecked([&] {
    const Number a = magnitude(m) / 2;
    const Number b = magnitude(n) / 2;
    const Number ratio = a / b;
    const Number t = kE15 + magnitude(x);
    return exp(L(a + b) - L(a) - L(b) + a * log(ratio) + (a - 1) * log(t) - (a + b) * log(1 + ratio * t));
  });
}

Evaluation fisherCumulative(double x, double m, double n, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) {
    const Number a = magnitude(m) / 2;
    const Number b = magnitude(n) / 2;
    const Number ratio = a / b;
    const Number t = kE15 + magnitude(x);
    return 1 - kernels.incompleteBeta(b, a, 1 / (1 + t * ratio));
  });
}

Evaluation normalLowerTail(double x) {
  return evaluateChecked([&] { return 1 - upperTail(x); });
}

Evaluation normalUpperTail(double x) {
  return evaluateChecked([&] { return upperTail(x); });
}

Evaluation normalCentralArea(double x) {
  return evaluateChecked([&] {
    Number q = upperTail(x);
    if (q > 0.5) q = 1 - q;
    return 1 - 2 * q;
  });
}

}  // namespace vk
