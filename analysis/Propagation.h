#pragma once

#include "analysis/AnalyticErrors.h"
#include "analysis/MonteCarlo.h"

/// Unit Module6: the propagation of errors through a model function, by derivatives and by simulation.
namespace vk {

/// How a propagation came to its end.
enum class PropagationEnd {
  kCompleted,
  kDerivativesFailed,
  kSimulationFailed,
  kNoDependence,  ///< the simulation failed because the function never changed
};

/// What came of a propagation.
struct PropagationResult {
  PropagationEnd end = PropagationEnd::kCompleted;
  AnalyticErrors analytic;
  SampleStatistics samples;    ///< as told last
  MonteCarloResult histogram;  ///< empty where the derivatives have failed
};

/// Hears of a propagation at fixed points.
class PropagationObserver {
 public:
  virtual ~PropagationObserver() = default;
  /// The derivatives are there, without a failure.
  virtual void derived(const AnalyticErrors& errors) = 0;
  /// The samples will be drawn now.
  virtual void simulationBegins() = 0;
  /// The samples so far, now and then.
  virtual void sampled(const SampleStatistics& samples) = 0;
};

/// The value of the model function at `ParValues`, its error from those in `ParDeltas` (positive: standard deviation,
/// negative: maximum error, index 0 the independent variable), and its distribution in 10000 samples. The generator
/// goes on from where it stands.
PropagationResult PropagateErrors(Model& model, const ParameterSet& par, UniformSource& random,
                                  EvaluationListener& listener, PropagationObserver& observer);

}  // namespace vk
