#include "bench/validation/Precise.h"

namespace vk {
namespace {

const Precise kNegligible = 1E-45;

/// The sum of positive terms, each the one before times `ratio(n)`, n = 1, 2, ..., which ends below 1/2.
template <class Ratio>
Precise series(Ratio ratio) {
  Precise sum = 1, term = 1;
  for (int n = 1; !(term < sum * kNegligible); ++n) {
    term = term * ratio(n);
    sum = sum + term;
  }
  return sum;
}

/// The fraction first + top(1)/(bottom(1) + top(2)/(bottom(2) + ...)), from the front with the ratios of successive
/// numerators and denominators.
template <class Top, class Bottom>
Precise fraction(const Precise& first, Top top, Bottom bottom) {
  Precise value = first, c = first, d = 0, change = 0;
  for (int n = 1; !(abs(change - 1) < kNegligible); ++n) {
    d = 1 / (bottom(n) + top(n) * d);
    c = bottom(n) + top(n) / c;
    change = c * d;
    value = value * change;
  }
  return value;
}

// The even part of Legendre's fraction [6.5.31].
Precise gammaFraction(const Precise& a, const Precise& x) {
  const Precise first = x + 1 - a;
  const Precise below = fraction(
      first, [&](int n) { return n * (a - n); }, [&](int n) { return first + 2 * n; });
  return exp(a * log(x) - x - lnGamma(a)) / below;
}

// [26.5.8]
Precise betaFraction(const Precise& a, const Precise& b, const Precise& x) {
  const auto top = [&](int n) {
    const int m = n / 2;
    const Precise numerator = n % 2 == 0 ? m * (b - m) : (a + m) * (a + b + m) * -1;
    return numerator * x / ((a + (n - 1)) * (a + n));
  };
  const Precise below = fraction(1, top, [](int) { return Precise(1); });
  return exp(a * log(x) + b * log(1 - x) + lnGamma(a + b) - lnGamma(a + 1) - lnGamma(b)) / below;
}

}  // namespace

// [6.5.29]
Precise lowerGamma(const Precise& a, const Precise& x) {
  return exp(a * log(x) - x - lnGamma(a + 1)) * series([&](int n) { return x / (a + n); });
}

Precise upperGamma(const Precise& a, const Precise& x) {
  return x < a + 1 ? 1 - lowerGamma(a, x) : gammaFraction(a, x);
}

Precise incompleteBeta(const Precise& a, const Precise& b, const Precise& x) {
  return x < (a + 1) / (a + b + 2) ? betaFraction(a, b, x) : 1 - betaFraction(b, a, 1 - x);
}

}  // namespace vk
