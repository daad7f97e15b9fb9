#include <algorithm>
#include <cmath>

#include "analysis/Propagation.h"
#include "analysis/Simulation.h"
#include "commands/RandomSource.h"
#include "platform/system/SystemRandom.h"
#include "tests/analysis/FitFixture.h"
#include "tests/analysis/ModelFixture.h"
#include "tests/analysis/Statistics.h"

namespace vk {
namespace {

constexpr int kDataSets = 2000;
constexpr double kLargestMean = 0.08;
constexpr double kLargestWidthError = 0.05;
constexpr double kLeastProbability = 0.01;

/// Probability of at least this distance from the uniform distribution on 0..1, by Kolmogorov and Smirnov.
double uniformProbability(const std::vector<double>& values) {
  const auto n = static_cast<double>(values.size());
  const double distance = distanceFromUniform(values);
  const double lambda = (std::sqrt(n) + 0.12 + 0.11 / std::sqrt(n)) * distance;
  double probability = 0;
  for (int k = 1; k <= 100; ++k) {
    probability += (k % 2 == 1 ? 2 : -2) * std::exp(-2 * k * k * lambda * lambda);
  }
  return probability;
}

TEST(Statistics, TellSpreadAndCorrelationOfColumns) {
  EXPECT_DOUBLE_EQ(width({1, 2, 6}), std::sqrt(7));
  EXPECT_DOUBLE_EQ(correlation({1, 2, 3}, {1, 4, 4}), std::sqrt(0.75));
  EXPECT_DOUBLE_EQ(within({-1, 1, 1.5, -2}, 1), 0.5);
}

TEST(UniformProbability, TellsUniformNumbersFromOthers) {
  std::vector<double> uniform, bent;
  for (int i = 0; i < 1000; ++i) {
    uniform.push_back((i + 0.5) / 1000);
    bent.push_back(std::pow(uniform.back(), 1.15));
  }
  EXPECT_GT(uniformProbability(uniform), 0.99);
  EXPECT_LT(uniformProbability(bent), kLeastProbability);
  // 1.63 is the critical value of 1 per cent.
  for (double& value : uniform) value = std::min(1.0, value + 1.63 / std::sqrt(1000));
  EXPECT_NEAR(uniformProbability(uniform), 0.01, 0.002);
}

/// What the fits of many simulated data sets of one model say.
struct Study {
  std::vector<std::vector<double>> pulls;  ///< of each parameter
  std::vector<double> confidence;          ///< 0..1
};

Study study(FitCase model, const std::vector<double>& truth, const SimulationSettings& settings) {
  SystemRandom random;
  random.seed(1);
  RandomSource source(random);
  Study result;
  result.pulls.resize(truth.size());
  for (int i = 0; i < kDataSets; ++i) {
    model.start(truth);
    model.points = simulate(settings, model.model, model.par, source, model.listener).data;
    scatterStart(model.par, source);
    const FitResult fit = model.fit();
    if (!fit.complete()) continue;
    const auto errors = model.linearised(*fit.chi_square);
    if (!errors) continue;
    result.confidence.push_back(*fit.confidence_percent / 100);
    for (std::size_t k = 0; k < truth.size(); ++k) {
      const int parameter = static_cast<int>(k) + 1;
      result.pulls[k].push_back((model.value(parameter) - truth[k]) / (*errors)[parameter]);
    }
  }
  return result;
}

void expectFair(const Study& study) {
  ASSERT_EQ(study.confidence.size(), static_cast<std::size_t>(kDataSets));
  for (std::size_t k = 0; k < study.pulls.size(); ++k) {
    EXPECT_NEAR(mean(study.pulls[k]), 0, kLargestMean) << "parameter " << k + 1;
    EXPECT_NEAR(width(study.pulls[k]), 1, kLargestWidthError) << "parameter " << k + 1;
  }
  EXPECT_GT(uniformProbability(study.confidence), kLeastProbability);
}

TEST(SimulatedData, FitsOfAStraightLineFindTheTruthWithinTheirErrors) {
  expectFair(study({"b*x+c", "b,c"}, {2, 1}, {0, 10, 11, .5, 1, 0, 0}));
}

TEST(SimulatedData, FitsOfABellCurveFindTheTruthWithinTheirErrors) {
  expectFair(study({"A*EXP(-((x-m)/s)^2/2)", "A,m,s"}, {100, 5, 1.2}, {0, 10, 41, 3, 1, 0, 0}));
}

// ---- Samples of a propagation -----------------------------------------------------------------------------

constexpr int kSeeds = 5;

/// y = bx+c at x = 3 with b = 2 and c = 1, for which the analytic error is the true one.
class LinearPropagation : public ModelTest, PropagationObserver {
 protected:
  /// `kurtosis` is the fourth moment of the result over the square of its variance.
  void expectAgreement(double errorX, double errorB, double errorC, double kurtosis) {
    loadLine();
    for (int seed = 1; seed <= kSeeds; ++seed) {
      set(0, 3, errorX);
      set(1, 2, errorB);
      set(2, 1, errorC);
      SystemRandom random;
      random.seed(static_cast<float>(seed));
      RandomSource source(random);
      const PropagationResult result = PropagateErrors(model, par, source, listener, *this);
      const double sigma = result.analytic.ErrorSigma;
      const double n = result.samples.count;
      EXPECT_NEAR(result.samples.mean, 7, 3 * sigma / std::sqrt(n)) << "seed " << seed;
      EXPECT_NEAR(result.samples.spread, sigma, 3 * sigma * std::sqrt((kurtosis - 1) / (4 * n)))
          << "seed " << seed;
      EXPECT_DOUBLE_EQ(result.samples.meanError, result.samples.spread / 100);
    }
  }

 private:
  void derived(const AnalyticErrors&) override {}
  void simulationBegins() override {}
  void sampled(const SampleStatistics&) override {}
};

TEST_F(LinearPropagation, TheSpreadOfANormalErrorIsTheAnalyticOne) {
  expectAgreement(0, 0.1, 0, 3);
}

TEST_F(LinearPropagation, TheSpreadOfAMaximumErrorIsTheAnalyticOne) {
  expectAgreement(0, 0, -0.4, 1.8);
}

TEST_F(LinearPropagation, TheSpreadOfSeveralNormalErrorsIsTheAnalyticOne) {
  // x and b multiply; with errors this small their product does not count.
  expectAgreement(0.001, 0.002, 0.003, 3);
}

TEST_F(LinearPropagation, TheSpreadOfMixedErrorsIsTheAnalyticOne) {
  // Variances 1/3 and 1 of 4/3: the kurtosis is 3 less 1.2 times the square of the uniform share.
  expectAgreement(0, 1.0 / 3, -1, 3 - 1.2 / 16);
}

}  // namespace
}  // namespace vk
