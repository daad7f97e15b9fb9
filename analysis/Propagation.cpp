#include "analysis/Propagation.h"

namespace vk {
namespace {

PropagationEnd endOf(MonteCarlo::End end) {
  switch (end) {
    case MonteCarlo::End::kFailed:
      return PropagationEnd::kSimulationFailed;
    case MonteCarlo::End::kNoWidth:
      return PropagationEnd::kNoDependence;
    case MonteCarlo::End::kCompleted:
      break;
  }
  return PropagationEnd::kCompleted;
}

}  // namespace

PropagationResult PropagateErrors(Model& model, const ParameterSet& par, UniformSource& random,
                                  EvaluationListener& listener, PropagationObserver& observer) {
  PropagationResult result;
  result.analytic = analyticErrors(model, par, listener);
  if (result.analytic.failed) {
    result.end = PropagationEnd::kDerivativesFailed;
    return result;
  }
  observer.derived(result.analytic);
  MonteCarlo simulation(model, par, random, listener);
  simulation.setUpBins(result.analytic);
  observer.simulationBegins();
  result.end = endOf(simulation.run([&](const SampleStatistics& samples) {
    result.samples = samples;
    observer.sampled(samples);
  }));
  result.histogram = simulation.histogram();
  return result;
}

}  // namespace vk
