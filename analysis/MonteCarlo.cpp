#include "analysis/MonteCarlo.h"

#include <algorithm>
#include <cmath>

#include "analysis/NormalDeviate.h"
#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "base/Rounding.h"

namespace vk {
namespace {

constexpr double kSigmasOnEachSide = 3;
constexpr double kBinsOfSigma = 10;
constexpr int kSamplesForRange = 200;

static_assert(kSamplesForRange % SampleBlock::kSamples == 0 &&
              MonteCarlo::kSamples % SampleBlock::kSamples == 0);

}  // namespace

MonteCarlo::MonteCarlo(Model& model, const ParameterSet& par, UniformSource& random,
                       EvaluationListener& listener)
    : model_(model),
      par_(par),
      random_(random),
      listener_(listener),
      block_(par, random),
      values_(par.ParValues),
      correlatedDeviates_(par.ParCount) {}

template <class Statement>
void MonteCarlo::trapped(Statement statement) {
  if (!guard(statement)) state_ = binsReady_ && w_ == 0 ? End::kNoWidth : End::kFailed;
}

double MonteCarlo::normalError(int i) {
  const double deviate = normalDeviate(random_, deviates_);
  if (!par_.correlated.has(i)) return checked::finite(par_.ParDeltas[i] * deviate);
  correlatedDeviates_[i] = deviate;
  return checked::finite(par_.correlated.error(i, [&](int k) { return correlatedDeviates_[k]; }));
}

// QUIRK: the evaluation clears a failure of the errors.
double MonteCarlo::sample() {
  double d = 0;
  for (int i = 0; i <= par_.ParCount; ++i) {
    const double e = par_.ParDeltas[i];
    trapped([&] { d = e <= 0 ? e * (2 * static_cast<double>(random_.next()) - 1) : normalError(i); });
    trapped([&] { values_[i] = checked::finite(par_.ParValues[i] + d); });
  }
  const Evaluation evaluation = model_.at(values_[0], values_, listener_);
  state_ = evaluation.fault == Fault::kNone ? End::kCompleted : End::kFailed;
  return evaluation.value;
}

/// Gives the values of samples to `take`, which tells whether it wants the next one. Where one of a block fails or is
/// not wanted, those up to it are drawn one by one, which is the definition of what they leave behind.
template <class Take>
void MonteCarlo::drawSamples(int count, Take take) {
  for (int begin = 0; begin < count; begin += SampleBlock::kSamples) {
    const bool together = block_.draw(model_, deviates_);
    for (int k = 0; k < SampleBlock::kSamples; ++k) {
      if (together) state_ = End::kCompleted;
      if (take(together ? block_.value(k) : sample())) continue;
      if (together) redraw(k + 1);
      return;
    }
    for (int i = 0; together && i <= par_.ParCount; ++i) values_[i] = block_.lastVariable(i);
  }
}

void MonteCarlo::redraw(int count) {
  const End state = state_;
  block_.giveBack(deviates_);
  for (int k = 0; k < count; ++k) sample();
  state_ = state;
}

void MonteCarlo::findRange(double F0) {
  double hi = lo_ = F0;
  drawSamples(kSamplesForRange, [&](double v) {
    lo_ = std::min(lo_, v);
    hi = std::max(hi, v);
    return true;
  });
  trapped([&] { w_ = checked::finite(hi - lo_) / kBins; });
}

void MonteCarlo::setUpBins(const AnalyticErrors& analytic) {
  histogram_.McBinCount = kBins;
  histogram_.McBinCentre.dim(kBins);
  histogram_.McBinHits.dim(kBins);
  histogram_.McSamples = 0;
  trapped([&] { lo_ = checked::finite(analytic.F0 - kSigmasOnEachSide * analytic.ErrorSigma); });
  w_ = analytic.ErrorSigma / kBinsOfSigma;
  if (analytic.ErrorSigma == 0) findRange(analytic.F0);
  for (int b = 1; b <= kBins; ++b) {
    trapped([&] { histogram_.McBinCentre[b] = checked::finite((b - 1) * w_ + lo_); });
  }
  trapped([&] { lo_ = checked::finite(lo_ - w_ / 2); });
  histogram_.McBinWidth = w_;
  binsReady_ = true;
}

void MonteCarlo::countHit(double v) {
  const Int16 k = toInt16(Int(checked::divide(checked::finite(v - lo_), w_)) + 1);
  // QUIRK: bin 1 never receives a hit.
  if (1 < k && k <= kBins) histogram_.McBinHits[k] += 1;
}

SampleStatistics MonteCarlo::statistics() {
  SampleStatistics result;
  result.count = histogram_.McSamples;
  result.mean = S1_ / result.count;
  const double m2 = S2_ / result.count;
  trapped([&] { result.spread = std::sqrt(std::abs(checked::finite(result.mean * result.mean - m2))); });
  result.meanError = result.spread / std::sqrt(result.count);
  return result;
}

MonteCarlo::End MonteCarlo::run(const Observer& observer) {
  Int16& n = histogram_.McSamples;
  state_ = End::kCompleted;
  drawSamples(kSamples, [&](double v) {
    trapped([&] { countHit(v); });
    n += 1;
    trapped([&] { S1_ = checked::finite(S1_ + v); });
    trapped([&] { S2_ = checked::finite(S2_ + v * v); });
    if (n % kSamplesAtOnce == 0) observer(statistics());
    return state_ == End::kCompleted;
  });
  return state_;
}

}  // namespace vk
