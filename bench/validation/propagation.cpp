#include "analysis/Propagation.h"

#include <cmath>

#include "bench/validation/NumberCell.h"
#include "bench/validation/Sections.h"
#include "bench/validation/SimulatedSets.h"
#include "numeric/Elementary.h"
#include "tests/analysis/CorrelatedPair.h"
#include "tests/analysis/Statistics.h"

namespace vk {
namespace {

constexpr int kRuns = 100;

/// A function of parameters with errors: positive ones are standard deviations, negative ones maxima.
struct Propagated {
  std::string description;
  std::string formula, names;
  std::vector<double> values, errors;
  double correlation;      ///< of the first two parameters, which are the only ones where it is not 0
  double mean, deviation;  ///< of the function, without any approximation
};

std::vector<Propagated> functions() {
  // Of a product, s and t being the deviations of a and b and c their covariance: mean ab + c, variance
  // b^2 s^2 + a^2 t^2 + 2abc + s^2 t^2 + c^2. Of exp(a): mean exp(a + s^2/2), variance mean^2 (exp(s^2) - 1).
  const double exponential = elementary::exp(1 + 0.1 * 0.1 / 2);
  return {{"a = 5 +- 0.3, b = 2 +- 0.1, c = 1 with a maximum error of 0.4",
           "2*a-3*b+c",
           "a,b,c",
           {5, 2, 1},
           {0.3, 0.1, -0.4},
           0,
           5,
           std::sqrt(0.36 + 0.09 + 0.16 / 3)},
          {"a = 10 +- 0.5, b = 4 +- 0.4", "a*b", "a,b", {10, 4}, {0.5, 0.4}, 0, 40, std::sqrt(4 + 16 + 0.04)},
          {"the same with a correlation of -80 %",
           "a*b",
           "a,b",
           {10, 4},
           {0.5, 0.4},
           -0.8,
           40 - 0.16,
           std::sqrt(4 + 16 - 12.8 + 0.04 + 0.16 * 0.16)},
          {"a = 1 +- 0.1",
           "EXP(a)",
           "a",
           {1},
           {0.1},
           0,
           exponential,
           exponential * std::sqrt(elementary::exp(0.1 * 0.1) - 1)}};
}

/// A propagation of which only the end counts.
class Unobserved : public PropagationObserver {
  void derived(const AnalyticErrors&) override {}
  void simulationBegins() override {}
  void sampled(const SampleStatistics&) override {}
};

struct Propagations {
  AnalyticErrors analytic;
  std::vector<double> means, spreads;  ///< of the samples, one for each run
};

Propagations propagate(const Propagated& function, int firstSeed) {
  Propagations result;
  result.means.resize(kRuns);
  result.spreads.resize(kRuns);
  const auto run = [&](int i) {
    FitCase fit(function.formula, function.names);
    StoreParameters(fit.par, function.values, function.errors, 1);
    if (function.correlation != 0)
      fit.par.correlated =
          correlatedErrors({1, 2}, {function.errors[0], function.errors[1]}, function.correlation);
    SeededSource seeded(firstSeed + i);
    Unobserved observer;
    const PropagationResult found =
        PropagateErrors(fit.model, fit.par, seeded.source, fit.listener, observer);
    result.means[static_cast<std::size_t>(i)] = found.samples.mean;
    result.spreads[static_cast<std::size_t>(i)] = found.samples.spread;
    return found.analytic;
  };
  result.analytic = run(0);
  doAll(kRuns, run);
  return result;
}

/// How far the mean of the runs is from a value, in units of its statistical error.
std::string off(const std::vector<double>& runs, double value) {
  return formatted("%.1f", (mean(runs) - value) / (width(runs) / std::sqrt(kRuns)));
}

}  // namespace

void writePropagation(std::ostream& page) {
  page << "| Function | by derivatives | exact | mean of the samples, off | off exact | their deviation, off "
          "| off "
          "exact |\n|---|---|---|---|---|---|---|\n";
  int seed = 1;
  for (const Propagated& function : functions()) {
    const Propagations found = propagate(function, seed);
    seed += kRuns;
    page << "| `" << function.formula << "`, " << function.description << " | "
         << formatted("%.4g", found.analytic.F0) << " +- " << formatted("%.4g", found.analytic.ErrorSigma)
         << " | " << formatted("%.4g", function.mean) << " +- " << formatted("%.4g", function.deviation)
         << " | " << off(found.means, found.analytic.F0) << " | " << off(found.means, function.mean) << " | "
         << off(found.spreads, found.analytic.ErrorSigma) << " | " << off(found.spreads, function.deviation)
         << " |\n";
  }
  page << R"(
Each function was propagated )"
       << kRuns << " times with " << MonteCarlo::kSamples
       << R"( samples. *Off* are the means of all runs from the value
and the error by derivatives, and from those that are true without the approximation of small errors, in units of the
statistical error of those means, which is a thousandth of the deviation for the mean of the samples.
)";
}

}  // namespace vk
