#include "expr/Distributions.h"

#include <cmath>
#include <limits>

#include "base/Rounding.h"
#include "expr/CheckedNumber.h"
#include "expr/CmpMod.h"
#include "expr/PlainOperations.h"

namespace vk {
namespace {

using Number = CheckedNumber;

// QUIRK: a short decimal on purpose, like the short pi.
constexpr double kNormalFactor = 0.3989423;
// Keeps logarithms away from zero.
constexpr double kE15 = 1E-15;

/// What a row works with: its first argument, the further ones, and where kernels tell of their failures.
class Row {
 public:
  Row(Session& session, Dialogs& dialogs, Number x0, std::span<const double> further)
      : x(x0), session_(session), dialogs_(dialogs), further_(further) {}

  /// Argument i (1 the second one written); run-time error 9 when the call had fewer.
  Number p(std::size_t i) const {
    if (i > further_.size()) throw RuntimeError(kIndexOutOfRange);
    return further_[i - 1];
  }
  Number incompleteBeta(Number a, Number b, Number at) const {
    return IncompleteBeta(session_, a.value(), b.value(), at.value());
  }
  Number upperGamma(Number a, Number at) const {
    return UpperGamma(session_, dialogs_, a.value(), at.value());
  }

  const Number x;

 private:
  Session& session_;
  Dialogs& dialogs_;
  std::span<const double> further_;
};

Number L(Number x) {
  return LnGamma(x.value());
}

Number gam(const Row& r) {
  const Number value = exp(L(r.x));
  const bool whole = r.x.value() == Int(r.x.value());
  return whole ? Number(Int((value + 0.5).value())) : value;
}

Number binomialDensity(const Row& r) {
  const Number k = abs(r.x);
  const Number n = abs(r.p(1));
  const Number p = abs(r.p(2)) + kE15;
  return exp(L(n + 1) - L(n - k + 1) - L(k + 1) + k * log(p) + (n - k) * log(1 - p));
}

Number binomialCumulative(const Row& r) {
  const Number k = abs(r.x);
  const Number n = abs(r.p(1));
  Number p = abs(r.p(2)) + kE15;
  if (p > 1) p = 1;
  if (k == 0) return checked::finite(std::pow((1 - p).value(), n.value()));
  if (k == n) return 1;
  return 1 - r.incompleteBeta(k + 1, n - k, p);
}

Number poissonDensity(const Row& r) {
  const Number x = abs(r.x);
  const Number m = abs(r.p(1));
  if (m == 0) return x == 0 ? 1 : 0;
  return exp(x * log(m) - m - L(x + 1));
}

Number poissonCumulative(const Row& r) {
  const Number x = abs(r.x);
  const Number m = abs(r.p(1));
  if (m == 0) return 1;
  return r.upperGamma(x + 1, m);
}

Number normalDensity(const Row& r) {
  const Number z = (r.x - r.p(1)) / r.p(2);
  return exp(-z * z / 2) * kNormalFactor / r.p(2);
}

Number upperTail(Number z) {
  return Number(ComplementaryError((z / std::sqrt(2.0)).value())) / 2;
}

Number normalCumulative(const Row& r) {
  return 1 - upperTail((r.x - r.p(1)) / r.p(2));
}

Number chiSquareDensity(const Row& r) {
  Number t = abs(r.x / 2);
  const Number a = abs(r.p(1) / 2);
  if (t == 0) t = kE15;
  return exp(a * log(t) - t - L(a)) * 0.5 / t;
}

Number chiSquareCumulative(const Row& r) {
  return 1 - r.upperGamma(abs(r.p(1) / 2), abs(r.x / 2));
}

Number studentDensity(const Row& r) {
  const Number v = abs(r.p(1));
  const Number a = v / 2;
  const Number t2 = r.x * r.x;
  return exp(L(a + 0.5) - L(a) - (a + 0.5) * log(1 + t2 / v)) / sqrt(v * kShortPi);
}

Number studentCumulative(const Row& r) {
  const Number a = abs(r.p(1)) / 2;
  const Number c = 0.5 / a;
  const Number t2 = r.x * r.x + kE15;
  const Number w = 1 / (1 + t2 * c);
  const Number tail = r.incompleteBeta(a, 0.5, w) / 2;
  return r.x > 0 ? 1 - tail : tail;
}

Number fisherDensity(const Row& r) {
  const Number a = abs(r.p(1)) / 2;
  const Number b = abs(r.p(2)) / 2;
  const Number ratio = a / b;
  const Number t = kE15 + abs(r.x);
  return exp(L(a + b) - L(a) - L(b) + a * log(ratio) + (a - 1) * log(t) - (a + b) * log(1 + ratio * t));
}

Number fisherCumulative(const Row& r) {
  const Number a = abs(r.p(1)) / 2;
  const Number b = abs(r.p(2)) / 2;
  const Number ratio = a / b;
  const Number t = kE15 + abs(r.x);
  return 1 - r.incompleteBeta(b, a, 1 / (1 + t * ratio));
}

Number centralArea(const Row& r) {
  Number q = upperTail(r.x);
  if (q > 0.5) q = 1 - q;
  return 1 - 2 * q;
}

Number valueOf(int opcode, const Row& row) {
  switch (opcode) {
    case kOpLnGam:
      return L(row.x);
    case kOpGam:
      return gam(row);
    case kOpBinomialDensity:
      return binomialDensity(row);
    case kOpBinomialCumulative:
      return binomialCumulative(row);
    case kOpPoissonDensity:
      return poissonDensity(row);
    case kOpPoissonCumulative:
      return poissonCumulative(row);
    case kOpNormalDensity:
      return normalDensity(row);
    case kOpNormalCumulative:
      return normalCumulative(row);
    case kOpChiSquareDensity:
      return chiSquareDensity(row);
    case kOpChiSquareCumulative:
      return chiSquareCumulative(row);
    case kOpStudentDensity:
      return studentDensity(row);
    case kOpStudentCumulative:
      return studentCumulative(row);
    case kOpFisherDensity:
      return fisherDensity(row);
    case kOpFisherCumulative:
      return fisherCumulative(row);
    case kOpLowerTail:
      return 1 - upperTail(row.x);
    case kOpUpperTail:
      return upperTail(row.x);
    case kOpCentralArea:
      return centralArea(row);
    default:
      return row.x;
  }
}

}  // namespace

double statisticValue(Session& session, Dialogs& dialogs, int opcode, double x,
                      std::span<const double> further) {
  const Int16 before = session.ErrFlag;
  session.ErrFlag = kFalse;
  double value = std::numeric_limits<double>::quiet_NaN();
  try {
    const Number found = valueOf(opcode, Row(session, dialogs, x, further));
    // A kernel that told of its failure has failed the whole statement.
    if (session.ErrFlag == kFalse) value = found.value();
  } catch (const RuntimeError&) {
    // The value stays no number; the caller's statement failed.
  }
  session.ErrFlag = before;
  return value;
}

}  // namespace vk
