// The converging minimiser on the problems of the NIST/ITL Statistical Reference Datasets, nonlinear regression, where
// nothing is known about errors: every point has the error 1.
#include "analysis/NistFixture.h"
#include "analysis/RefinedFit.h"

namespace vk {
namespace {

class RefinedNist : public NistTest {
 protected:
  // The scatter is known to about the rounding of y, which in Lanczos1 is not far below it.
  void expectErrors(const RefinedFit& refined) const {
    const double tolerance = 1E-5 + 1E-15 / problem.residualDeviation;
    ASSERT_EQ(refined.covariance.size(), problem.parameters());
    for (int i = 1; i <= problem.parameters(); ++i) {
      const double certified = problem.deviations[static_cast<std::size_t>(i) - 1];
      EXPECT_NEAR(refined.scaledError(i).value_or(0) / certified, 1, tolerance) << i;
    }
  }

  void expectMinimumFrom(const std::vector<double>& start) const {
    FitCase fit = fitFrom(start, 1);
    const ParameterSet begin = fit.par;
    const FitResult prescribed = fit.fit();
    const RefinedFit refined = refine(fit.problem(), begin, &prescribed, XErrors::kEffective);
    EXPECT_EQ(refined.end, LeastSquaresEnd::kConverged);
    EXPECT_GE(problem.digits(refined.par.ParValues.span(1, problem.parameters())), 6);
    expectErrors(refined);
  }
};

TEST_P(RefinedNist, ReachesTheCertifiedMinimumFromTheFarStart) {
  expectMinimumFrom(problem.starts[0]);
}

TEST_P(RefinedNist, ReachesTheCertifiedMinimumFromTheNearStart) {
  expectMinimumFrom(problem.starts[1]);
}

INSTANTIATE_TEST_SUITE_P(Problems, RefinedNist, nistProblems(), nistName);

}  // namespace
}  // namespace vk
