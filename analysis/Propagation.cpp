#include "analysis/Propagation.h"

#include <array>

namespace vk {
namespace {

// In the order of the ends of a simulation.
constexpr std::array kEnds{PropagationEnd::kCompleted, PropagationEnd::kSimulationFailed,
                           PropagationEnd::kNoDependence};

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
  const MonteCarlo::End end = simulation.run([&](const SampleStatistics& samples) {
    result.samples = samples;
    observer.sampled(samples);
  });
  result.end = kEnds.at(static_cast<std::size_t>(end));
  result.histogram = simulation.histogram();
  return result;
}

}  // namespace vk
