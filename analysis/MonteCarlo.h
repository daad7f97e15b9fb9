#pragma once

#include <functional>

#include "analysis/AnalyticErrors.h"
#include "numeric/NormalDeviates.h"
#include "platform/Dialogs.h"
#include "platform/Random.h"
#include "session/Session.h"

namespace vk {

/// What the samples drawn so far tell.
struct SampleStatistics {
  int count = 0;
  double mean = 0;
  double spread = 0;     ///< standard deviation of the samples
  double meanError = 0;  ///< standard deviation of their mean
};

/// A simulation of the model function with random errors of its variables, which fills the session's
/// histogram.
///
/// It runs under an error trap: a statement that fails stores nothing, sets `ErrFlag` and the next one runs.
class MonteCarlo {
 public:
  static constexpr int kBins = 60;
  static constexpr int kSamples = 10000;
  /// Told so often, in samples.
  static constexpr int kToldEvery = 100;
  /// `ErrFlag` after a failure while all bins have the width 0.
  static constexpr int kNoWidth = -2;

  using Told = std::function<void(const SampleStatistics&)>;

  /// The base point is the session's `ParValues` of now.
  MonteCarlo(Session& session, Dialogs& dialogs, Random& random);

  /// Lays the bins over three standard deviations on each side of F0, or over the range of some samples where
  /// the linear error is 0. The counts start at 0.
  void setUpBins(const AnalyticErrors& analytic);

  /// Draws the samples. False as soon as `ErrFlag` is set after one of them: -2 while the bins have no width,
  /// else -1. `ParValues` is left where the last sample put it.
  bool run(const Told& told);

  double McBinWidth() const { return w_; }

 private:
  template <class Statement>
  void trapped(Statement statement);
  double sample();
  void findRange(double F0);
  void countHit(double v);
  SampleStatistics statistics();

  Session& session_;
  Dialogs& dialogs_;
  Random& random_;
  Array<double> BaseValues_;
  GaussianState deviates_;
  bool binsReady_ = false;
  double lo_ = 0;  ///< left edge of bin 1
  double w_ = 0;
  double S1_ = 0, S2_ = 0;
};

}  // namespace vk
