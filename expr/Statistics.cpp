#include <array>
#include <limits>
#include <optional>

#include "expr/CheckedNumber.h"
#include "expr/CmpMod.h"

namespace vk {
namespace {

using Number = CheckedNumber;

// Both fractions and the series stop at a relative change below this, or give up.
constexpr double kEps = 3E-7;
constexpr int kMostTerms = 100;
// Stands for a zero in a continued fraction.
constexpr double kTiny = 1E-30;

// QUIRK: this series and the error function below keep their modest accuracy, so the logarithms of 0! and 1! are
// not quite 0 and erfc(0) is not quite 1; every figure that the program prints was made with them.
Number lnGamma(Number xx) {
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

Number betaFraction(Session& session, Number a, Number b, Number x) {
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
  session.ErrFlag = kTrue;
  return h;
}

/// The lower function by its series; nothing when `mostTerms` do not suffice.
std::optional<Number> gammaSeries(Number a, Number x, Number gln, int mostTerms) {
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

/// One command asks for the function at thousands of points: it is told of it once.
void tellExhausted(Session& session, Dialogs& dialogs) {
  if (session.GammaTold == kFalse) dialogs.plainBox("D_X2", "Errori nel Calcolo della Funzione");
  session.GammaTold = kTrue;
  session.ErrFlag = kTrue;
}

}  // namespace

double LnGamma(double x) {
  return lnGamma(x).value();
}

double BetaFraction(Session& session, double a, double b, double x) {
  return betaFraction(session, a, b, x).value();
}

double IncompleteBeta(Session& session, double a0, double b0, double x0) {
  const Number a = a0;
  const Number b = b0;
  const Number x = x0;
  if (x < 0 || x > 1) {
    session.ErrFlag = kTrue;
    return 0;
  }
  const Number bt =
      x == 0 || x == 1 ? 0 : exp(lnGamma(a + b) - lnGamma(a) - lnGamma(b) + a * log(x) + b * log(1 - x));
  if (x < (a + 1) / (a + b + 2)) return (bt * betaFraction(session, a, b, x) / a).value();
  return (1 - bt * betaFraction(session, b, a, 1 - x) / b).value();
}

double GammaSeries(Session& session, Dialogs& dialogs, double a, double x, double& gln) {
  gln = LnGamma(a);
  const std::optional<Number> sum = gammaSeries(a, x, gln, kMostTerms);
  if (!sum) tellExhausted(session, dialogs);
  return sum ? sum->value() : 0;
}

double GammaFraction(Session& session, Dialogs& dialogs, double a, double x, double& gln) {
  gln = LnGamma(a);
  const GammaConvergent reached = gammaConvergent(a, x, kMostTerms);
  if (reached.exhausted) tellExhausted(session, dialogs);
  return withGammaFactor(reached.g, a, x, gln).value();
}

double UpperGamma(Session& session, Dialogs& dialogs, double a, double x) {
  if (x < 0 || a <= 0) {
    session.ErrFlag = kTrue;
    return 0;
  }
  double gln = 0;
  if (takesSeries(a, x)) return (1 - Number(GammaSeries(session, dialogs, a, x, gln))).value();
  return GammaFraction(session, dialogs, a, x, gln);
}

double fullUpperGamma(double a, double x) {
  if (x < 0 || a <= 0) throw RuntimeError(kInvalidCall);
  constexpr int kNoLimit = std::numeric_limits<int>::max();
  const Number gln = lnGamma(a);
  if (takesSeries(a, x)) return (1 - gammaSeries(a, x, gln, kNoLimit).value()).value();
  return withGammaFactor(gammaConvergent(a, x, kNoLimit).g, a, x, gln).value();
}

double ComplementaryError(double x) {
  const Number z = std::fabs(x);
  const Number t = 1 / (1 + 0.3275911 * z);
  const Number t2 = t * t;
  const Number polynomial = t * 0.254829592 + t2 * -0.284496736 + t * t * t * 1.421413741 +
                            t2 * t2 * -1.453152027 + t * t2 * t2 * 1.061405429;
  const Number r = exp(-z * z) * polynomial;
  return x >= 0 ? r.value() : (2 - r).value();
}

double GaussianDeviate(Session& session, Random& random, Int16& flag) {
  GaussianState& state = session.analysis.gaussian;
  if (flag != 0) {
    flag = 0;
    return state.stored;
  }
  do {
    state.w1 = static_cast<float>(2.0 * random.next() - 1);
    state.w2 = static_cast<float>(2.0 * random.next() - 1);
    const double w1 = state.w1;
    const double w2 = state.w2;
    state.s = w1 * w1 + w2 * w2;
  } while (!(state.s < 1));
  state.fac = sqrt(-2 * log(Number(state.s)) / state.s).value();
  state.stored = state.w1 * state.fac;
  flag = 1;
  return state.w2 * state.fac;
}

}  // namespace vk
