#include "numeric/SpecialFunctions.h"

#include <array>
#include <limits>
#include <optional>

#include "base/Rounding.h"
#include "numeric/CheckedKernels.h"

namespace vk {
namespace {

using Number = CheckedNumber;

// Both fractions and the series stop at a relative change below this, or give up.
constexpr double kEps = 3E-7;
constexpr int kMostTerms = 100;
// Stands for a zero in a continued fraction.
constexpr double kTiny = 1E-30;

Number awayFromZero(Number x) {
  return abs(x) < kTiny ? Number(kTiny) : x;
}

/// The two ratios of the modified Lentz evaluation.
struct Lentz {
  Number c, d;
  void next(Number coefficient) {
    d = awayFromZero(1 + coefficient * d);
    c = awayFromZero(1 + coefficient / c);
    d = 1 / d;
  }
};

/// The lower function by its series; nothing when `mostTerms` do not suffice.
std::optional<Number> seriesOf(Number a, Number x, Number gln, int mostTerms) {
  if (x <= 0) return 0;
  Number ap = a;
  Number sum = 1 / a;
  Number term = sum;
  for (int n = 1; n <= mostTerms; ++n) {
    ap = ap + 1;
    term = term * x / ap;
    sum = sum + term;
    if (abs(term) < abs(sum) * kEps) return sum * exp(-x + a * log(x) - gln);
  }
  return std::nullopt;
}

/// The convergents of the fraction, rescaled by `fac` so that they stay in range.
struct Convergents {
  Number a0 = 1, a1, b0 = 0, b1 = 1, fac = 1;
  void next(Number n, Number a, Number x) {
    const Number ana = n - a;
    a0 = (a1 + a0 * ana) * fac;
    b0 = (b1 + b0 * ana) * fac;
    const Number anf = n * fac;
    a1 = x * a0 + anf * a1;
    b1 = x * b0 + anf * b1;
  }
};

/// The fraction without its factor in front, and whether `mostTerms` have not sufficed.
struct GammaConvergent {
  Number g;
  bool exhausted;
};

GammaConvergent gammaConvergent(Number a, Number x, int mostTerms) {
  Convergents c{.a1 = x};
  Number g = 0;
  Number before = 0;
  for (int n = 1; n <= mostTerms; ++n) {
    c.next(n, a, x);
    if (c.a1 == 0) continue;
    c.fac = 1 / c.a1;
    g = c.b1 * c.fac;
    if (abs((g - before) / g) < kEps) return {g, false};
    before = g;
  }
  return {g, true};
}

Number withGammaFactor(Number g, Number a, Number x, Number gln) {
  return g * exp(-x + a * log(x) - gln);
}

/// Below this the series is the quicker way, from it on the fraction.
bool takesSeries(Number a, Number x) {
  return x < a + 1;
}

}  // namespace

void CheckedKernels::exhausted(Kernel kernel) {
  fault_ = Fault::kExhausted;
  listener_.exhausted(kernel);
}

CheckedNumber CheckedKernels::outsideDomain() {
  fault_ = Fault::kDomain;
  return 0;
}

// QUIRK: this series and the error function below keep their modest accuracy, so the logarithms of 0! and 1! are
// not quite 0 and erfc(0) is not quite 1; every figure that the program prints was made with them.
CheckedNumber CheckedKernels::lnGamma(CheckedNumber xx) {
  constexpr std::array kCoefficients{76.18009173,  -86.50532033,  24.01409822,
                                     -1.231739516, 0.00120858003, -5.36382E-6};
  Number x = xx - 1;
  Number tmp = x + 5.5;
  tmp = (x + 0.5) * log(tmp) - tmp;
  Number series = 1;
  for (const double coefficient : kCoefficients) {
    x = x + 1;
    series = series + coefficient / x;
  }
  return tmp + log(2.50662827465 * series);
}

CheckedNumber CheckedKernels::betaFraction(CheckedNumber a, CheckedNumber b, CheckedNumber x) {
  const Number qab = a + b;
  const Number qap = a + 1;
  const Number qam = a - 1;
  Lentz lentz{1, 1 / awayFromZero(1 - qab * x / qap)};
  Number h = lentz.d;
  for (int i = 1; i <= kMostTerms; ++i) {
    const Number m = i;
    const Number m2 = 2 * i;
    lentz.next(m * (b - m) * x / ((qam + m2) * (a + m2)));
    h = h * lentz.d * lentz.c;
    lentz.next(-(a + m) * (qab + m) * x / ((a + m2) * (qap + m2)));
    const Number change = lentz.d * lentz.c;
    h = h * change;
    if (abs(change - 1) < kEps) return h;
  }
  exhausted(Kernel::kBetaFraction);
  return h;
}

CheckedNumber CheckedKernels::incompleteBeta(CheckedNumber a, CheckedNumber b, CheckedNumber x) {
  if (x < 0 || x > 1) return outsideDomain();
  const Number bt =
      x == 0 || x == 1 ? 0 : exp(lnGamma(a + b) - lnGamma(a) - lnGamma(b) + a * log(x) + b * log(1 - x));
  if (x < (a + 1) / (a + b + 2)) return bt * betaFraction(a, b, x) / a;
  return 1 - bt * betaFraction(b, a, 1 - x) / b;
}

CheckedNumber CheckedKernels::gammaSeries(CheckedNumber a, CheckedNumber x) {
  const std::optional<Number> sum = seriesOf(a, x, lnGamma(a), kMostTerms);
  if (!sum) exhausted(Kernel::kGammaSeries);
  return sum.value_or(0);
}

CheckedNumber CheckedKernels::gammaFraction(CheckedNumber a, CheckedNumber x) {
  const Number gln = lnGamma(a);
  const GammaConvergent reached = gammaConvergent(a, x, kMostTerms);
  if (reached.exhausted) exhausted(Kernel::kGammaFraction);
  return withGammaFactor(reached.g, a, x, gln);
}

CheckedNumber CheckedKernels::upperGamma(CheckedNumber a, CheckedNumber x) {
  if (x < 0 || a <= 0) return outsideDomain();
  return takesSeries(a, x) ? 1 - gammaSeries(a, x) : gammaFraction(a, x);
}

CheckedNumber CheckedKernels::fullUpperGamma(CheckedNumber a, CheckedNumber x) {
  if (x < 0 || a <= 0) throw RuntimeError(kInvalidCall);
  constexpr int kNoLimit = std::numeric_limits<int>::max();
  const Number gln = lnGamma(a);
  if (takesSeries(a, x)) return 1 - seriesOf(a, x, gln, kNoLimit).value();
  return withGammaFactor(gammaConvergent(a, x, kNoLimit).g, a, x, gln);
}

CheckedNumber CheckedKernels::complementaryError(CheckedNumber x) {
  const Number z = abs(x);
  const Number t = 1 / (1 + 0.3275911 * z);
  const Number t2 = t * t;
  const Number polynomial = t * 0.254829592 + t2 * -0.284496736 + t * t * t * 1.421413741 +
                            t2 * t2 * -1.453152027 + t * t2 * t2 * 1.061405429;
  const Number r = exp(-z * z) * polynomial;
  return x >= 0 ? r : 2 - r;
}

Evaluation lnGamma(double x) {
  return evaluateChecked([&] { return CheckedKernels::lnGamma(x); });
}

Evaluation gammaFunction(double x) {
  return evaluateChecked([&] {
    const Number value = exp(CheckedKernels::lnGamma(x));
    return x == Int(x) ? Number(Int((value + 0.5).value())) : value;
  });
}

Evaluation betaFraction(double a, double b, double x, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) { return kernels.betaFraction(a, b, x); });
}

Evaluation incompleteBeta(double a, double b, double x, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) { return kernels.incompleteBeta(a, b, x); });
}

Evaluation gammaSeries(double a, double x, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) { return kernels.gammaSeries(a, x); });
}

Evaluation gammaFraction(double a, double x, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) { return kernels.gammaFraction(a, x); });
}

Evaluation upperGamma(double a, double x, EvaluationListener& listener) {
  return evaluateChecked(listener, [&](CheckedKernels& kernels) { return kernels.upperGamma(a, x); });
}

Evaluation fullUpperGamma(double a, double x) {
  return evaluateChecked([&] { return CheckedKernels::fullUpperGamma(a, x); });
}

Evaluation complementaryError(double x) {
  return evaluateChecked([&] { return CheckedKernels::complementaryError(x); });
}

}  // namespace vk
