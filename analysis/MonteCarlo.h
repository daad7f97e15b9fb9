#pragma once

#include <functional>

#include "analysis/AnalyticErrors.h"
#include "analysis/MonteCarloResult.h"
#include "analysis/SampleBlock.h"

namespace vk {

/// What the samples drawn so far tell.
struct SampleStatistics {
  int count = 0;
  double mean = 0;
  double spread = 0;     ///< standard deviation of the samples
  double meanError = 0;  ///< standard deviation of their mean
};

/// A simulation of a model function with random errors of its variables, which fills a histogram.
///
/// A statement that fails stores nothing, is remembered as a failure, and the next one runs.
class MonteCarlo {
 public:
  static constexpr int kBins = 60;
  static constexpr int kSamples = 10000;
  /// The observer hears of the samples so often.
  static constexpr int kSamplesAtOnce = 100;

  /// How a run ended.
  enum class End { kCompleted, kFailed, kNoWidth /**< failed while all bins have the width 0 */ };

  using Observer = std::function<void(const SampleStatistics&)>;

  /// The base point are the present `ParValues`, the errors `ParDeltas`.
  MonteCarlo(Model& model, const ParameterSet& par, UniformSource& random, EvaluationListener& listener);

  /// Lays the bins over three standard deviations on each side of F0, or over the range of some samples where
  /// the linear error is 0. The counts start at 0.
  void setUpBins(const AnalyticErrors& analytic);

  /// Draws the samples, until a failure is there after one of them.
  End run(const Observer& observer);

  const MonteCarloResult& histogram() const { return histogram_; }
  /// The variables of the sample drawn last.
  const Array<double>& values() const { return values_; }

 private:
  template <class Statement>
  void trapped(Statement statement);
  double normalError(int i);
  double sample();
  template <class Take>
  void drawSamples(int count, Take take);
  void redraw(int count);
  void findRange(double F0);
  void countHit(double v);
  SampleStatistics statistics();

  Model& model_;
  const ParameterSet& par_;
  UniformSource& random_;
  EvaluationListener& listener_;
  GaussianState deviates_;
  SampleBlock block_;
  Array<double> values_;
  Array<double> correlatedDeviates_;  ///< of the sample that is drawn one by one
  MonteCarloResult histogram_;
  End state_ = End::kCompleted;
  bool binsReady_ = false;
  double lo_ = 0;  ///< left edge of bin 1
  double w_ = 0;
  double S1_ = 0, S2_ = 0;
};

}  // namespace vk
