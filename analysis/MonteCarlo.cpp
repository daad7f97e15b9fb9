#include "analysis/MonteCarlo.h"

#include <algorithm>
#include <cmath>
#include "analysis/RandomSource.h"

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "base/Rounding.h"
#include "expr/CmpMod.h"

namespace vk {
namespace {

constexpr double kSigmasOnEachSide = 3;
constexpr double kBinsOfSigma = 10;
constexpr int kSamplesForRange = 200;

}  // namespace

MonteCarlo::MonteCarlo(Session& session, Dialogs& dialogs, Random& random)
    : session_(session), dialogs_(dialogs), random_(random), BaseValues_(session.analysis.par.ParValues) {}

template <class Statement>
void MonteCarlo::trapped(Statement statement) {
  if (!guard(statement)) session_.ErrFlag = binsReady_ && w_ == 0 ? kNoWidth : kTrue;
}

double MonteCarlo::sample() {
  ParameterSet& par = session_.analysis.par;
  double d = 0;
  for (int i = 0; i <= par.ParCount; ++i) {
    const double e = par.ParDeltas[i];
    trapped([&] {
      d = e <= 0 ? e * (2.0 * random_.next() - 1) : checked::finite(e * normalDeviate(random_, deviates_));
    });
    trapped([&] { par.ParValues[i] = checked::finite(BaseValues_[i] + d); });
  }
  return EvaluateFunction(session_, dialogs_, par.ParValues[0]);
}

void MonteCarlo::findRange(double F0) {
  double hi = lo_ = F0;
  for (int i = 1; i <= kSamplesForRange; ++i) {
    const double v = sample();
    lo_ = std::min(lo_, v);
    hi = std::max(hi, v);
  }
  trapped([&] { w_ = checked::finite(hi - lo_) / kBins; });
}

void MonteCarlo::setUpBins(const AnalyticErrors& analytic) {
  MonteCarloResult& histogram = session_.analysis.monteCarlo;
  histogram.McBinCount = kBins;
  histogram.McBinCentre.dim(kBins);
  histogram.McBinHits.dim(kBins);
  histogram.McSamples = 0;
  trapped([&] { lo_ = checked::finite(analytic.F0 - kSigmasOnEachSide * analytic.ErrorSigma); });
  w_ = analytic.ErrorSigma / kBinsOfSigma;
  if (analytic.ErrorSigma == 0) findRange(analytic.F0);
  for (int b = 1; b <= kBins; ++b) {
    trapped([&] { histogram.McBinCentre[b] = checked::finite((b - 1) * w_ + lo_); });
  }
  trapped([&] { lo_ = checked::finite(lo_ - w_ / 2); });
  binsReady_ = true;
}

void MonteCarlo::countHit(double v) {
  const Int16 k = toInt16(Int(checked::divide(checked::finite(v - lo_), w_)) + 1);
  // QUIRK: bin 1 never receives a hit.
  if (1 < k && k <= kBins) session_.analysis.monteCarlo.McBinHits[k] += 1;
}

SampleStatistics MonteCarlo::statistics() {
  SampleStatistics result;
  result.count = session_.analysis.monteCarlo.McSamples;
  result.mean = S1_ / result.count;
  const double m2 = S2_ / result.count;
  trapped([&] { result.spread = std::sqrt(std::abs(checked::finite(result.mean * result.mean - m2))); });
  result.meanError = result.spread / std::sqrt(result.count);
  return result;
}

bool MonteCarlo::run(const Told& told) {
  Int16& n = session_.analysis.monteCarlo.McSamples;
  session_.ErrFlag = 0;
  while (n < kSamples) {
    const double v = sample();
    trapped([&] { countHit(v); });
    n += 1;
    trapped([&] { S1_ = checked::finite(S1_ + v); });
    trapped([&] { S2_ = checked::finite(S2_ + v * v); });
    if (n % kToldEvery == 0) told(statistics());
    if (session_.ErrFlag != 0) return false;
  }
  return true;
}

}  // namespace vk
