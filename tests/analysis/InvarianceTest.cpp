// The figures of the refined fit do not depend on how it is asked.
#include <cmath>

#include "analysis/NistFixture.h"
#include "analysis/RefinedFit.h"
#include "analysis/Simulation.h"
#include "commands/RandomSource.h"
#include "doubles/Tolerances.h"
#include "platform/system/SystemRandom.h"
#include "tests/analysis/FitTask.h"

namespace vk {
namespace {

constexpr double kSame = kMinimum;

CovarianceMatrix covarianceOfMinimum(const FitTask& task, XErrors xErrors) {
  FitCase fit = task.fitCase();
  const ParameterSet start = fit.par;
  const FitResult prescribed = fit.fit();
  const RefinedFit result = refine(fit.problem(), start, &prescribed, xErrors);
  EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
  return result.covariance;
}

void expectTheSameAskedInOtherWays(const FitTask& task, XErrors xErrors = XErrors::kEffective) {
  const CovarianceMatrix before = covarianceOfMinimum(task, xErrors);
  for (const auto& [way, other] : {std::pair{"lines", withLinesMixed(task, 1)},
                                   {"units", inOtherUnits(task)},
                                   {"names", withOtherNames(task)}}) {
    EXPECT_LE(largestChange(before, covarianceOfMinimum(other, xErrors), other.places), kSame) << way;
  }
}

// ---- Certified problems

using InvarianceNist = NistTest;

TEST_P(InvarianceNist, OfErrorsAndCorrelations) {
  expectTheSameAskedInOtherWays(taskOf(problem, GetParam().formula, 1));
}

INSTANTIATE_TEST_SUITE_P(Problems, InvarianceNist, nistProblems(), nistName);

// ---- Errors in x

/// Points of a resonance with errors in x.
FitTask resonance() {
  constexpr const char* kFormula = "A/SQR((1-(x/f)^2)^2+(x/(f*Q))^2)";
  FitCase fit(kFormula, "A,f,Q");
  fit.start({2, 5, 6});
  SystemRandom random;
  random.seed(1);
  RandomSource source(random);
  const SimulationSettings settings{3, 7, Int16(40), 0.2, Int16(1), 0.03, Int16(1)};
  return taskOf(kFormula, "A,f,Q", {2.1, 5.1, 5.8},
                simulate(settings, fit.model, fit.par, source, fit.listener).data);
}

TEST(Invariance, OfErrorsAndCorrelationsByTheEffectiveVariance) {
  expectTheSameAskedInOtherWays(resonance());
}

TEST(Invariance, OfErrorsAndCorrelationsByTheDistanceFromTheCurve) {
  expectTheSameAskedInOtherWays(resonance(), XErrors::kOrthogonal);
}

TEST(Invariance, OfErrorsAndCorrelationsFromAnotherStart) {
  FitTask task = resonance();
  const CovarianceMatrix before = covarianceOfMinimum(task, XErrors::kEffective);
  task.start = {1.5, 4.8, 8};
  EXPECT_LE(largestChange(before, covarianceOfMinimum(task, XErrors::kEffective), task.places), kSame);
}

// ---- The measure itself

TEST(LargestChange, SeesEachErrorAndCorrelation) {
  CovarianceMatrix before(2), after(2);
  before.set(1, 1, 1), before.set(2, 2, 4), before.set(1, 2, 1);
  after.set(1, 1, 4), after.set(2, 2, 1), after.set(1, 2, 1);
  EXPECT_DOUBLE_EQ(largestChange(before, after, {{2, 1}, {1, 1}}), 0);
  EXPECT_DOUBLE_EQ(largestChange(before, after, {{1, 1}, {2, 1}}), 1);
  after.set(1, 2, -0.5);
  EXPECT_DOUBLE_EQ(largestChange(before, after, {{2, 1}, {1, 1}}), 0.75);
  after.set(1, 1, std::nan(""));
  EXPECT_FALSE(largestChange(before, after, {{2, 1}, {1, 1}}) <= kSame);
  EXPECT_FALSE(largestChange(before, CovarianceMatrix(), {{2, 1}, {1, 1}}) <= kSame);
}

}  // namespace
}  // namespace vk
