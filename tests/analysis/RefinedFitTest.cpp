#include "analysis/RefinedFit.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "analysis/FitFixture.h"
#include "doubles/Tolerances.h"
#include "numeric/SampleValues.h"

namespace vk {
namespace {

/// A decay on a background at eight points.
FitCase decay(const std::vector<double>& start) {
  FitCase fit("A*EXP(-B*x)+C", "A,B,C");
  fit.data({0, 1, 2, 3, 4, 5, 6, 7}, {10.2, 7.1, 4.9, 3.9, 2.7, 2.4, 2.1, 1.6}, std::vector<double>(8, 0.2));
  fit.start(start);
  return fit;
}

RefinedFit refined(FitCase& fit, XErrors xErrors = XErrors::kEffective) {
  const ParameterSet start = fit.par;
  const FitResult result = FitData(fit.problem(), start, fit.log);
  return refine(fit.problem(), start, &result, xErrors);
}

TEST(RefinedFit, HasTheStandardErrorsOfALine) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  const RefinedFit result = refined(fit);
  ASSERT_TRUE(result.converged());
  EXPECT_NEAR(result.error(1), 0.1 / std::sqrt(10), kManyRoundings);
  EXPECT_NEAR(result.error(2), 0.1 * std::sqrt(1.0 / 5 + 9.0 / 10), kManyRoundings);
  EXPECT_EQ(result.degreesOfFreedom, 3);
  EXPECT_NEAR(*result.scaledError(1), result.error(1) * std::sqrt(result.chiSquare / 3), kLastBit);
  EXPECT_EQ(result.residuals.size(), 5u);
}

TEST(RefinedFit, DoesNotDependOnTheOrderOfTheLines) {
  FitCase fit = decay({8, 0.4, 1});
  const RefinedFit before = refined(fit);
  ASSERT_TRUE(before.converged());
  for (Array<double>* column : {&fit.points.Xpnt, &fit.points.Ypnt, &fit.points.ErrYpnt}) {
    const std::span<double> values = column->span(1, 8);
    std::rotate(values.begin(), values.begin() + 3, values.end());
  }
  const RefinedFit after = refined(fit);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_NEAR(after.par.ParValues[i] / before.par.ParValues[i], 1, kIterated);
    EXPECT_NEAR(after.error(i) / before.error(i), 1, kMinimum);
  }
  EXPECT_NEAR(after.covariance.correlation().at(1, 3), before.covariance.correlation().at(1, 3), kMinimum);
}

TEST(RefinedFit, DoesNotDependOnTheStart) {
  FitCase near = decay({9, 0.35, 1}), far = decay({3, 1, 0.1});
  const RefinedFit a = refined(near), b = refined(far);
  ASSERT_TRUE(a.converged() && b.converged());
  for (int i = 1; i <= 3; ++i) {
    EXPECT_NEAR(b.par.ParValues[i] / a.par.ParValues[i], 1, kIterated);
    EXPECT_NEAR(b.error(i) / a.error(i), 1, kMinimum);
  }
}

TEST(RefinedFit, LeavesConstantParametersAsTheyAre) {
  FitCase fit = decay({9, 0.35, 1.5});
  fit.start({9, 0.35, 1.5}, "C");
  const RefinedFit result = refined(fit);
  ASSERT_TRUE(result.converged());
  EXPECT_EQ(result.par.ParValues[3], 1.5);
  EXPECT_EQ(result.covariance.size(), 2);
}

TEST(RefinedFit, WorksWhereTheFitFails) {
  FitCase fit = decay({9, 0.35, 1});
  FitResult failed;
  failed.status = FitStatus::kFailed;
  failed.par = fit.par;
  failed.par.ParValues[2] = 1E9;
  EXPECT_TRUE(refine(fit.problem(), fit.par, &failed, XErrors::kEffective).converged());
  EXPECT_TRUE(refine(fit.problem(), fit.par, nullptr, XErrors::kEffective).converged());
}

TEST(RefinedFit, TellsThePointThatFails) {
  FitCase fit("a*LOG(x)", "a");
  fit.data({1, 2, -3, 4}, {1, 2, 3, 4}, {1, 1, 1, 1});
  fit.start({1});
  const RefinedFit result = refine(fit.problem(), fit.par, nullptr, XErrors::kEffective);
  EXPECT_EQ(result.end, LeastSquaresEnd::kFailed);
  EXPECT_EQ(result.failedPoint, 3);
  EXPECT_EQ(result.par.ParValues[1], 1);
  EXPECT_FALSE(result.confidencePercent.has_value());
}

TEST(RefinedFit, HasNoReducedChiSquareBeyondTheRangeOfNumbers) {
  FitCase fit("a*x", "a");
  fit.data({1, 2}, {1E200, 2E200}, {1, 1});
  fit.start({1});
  const RefinedFit result = refine(fit.problem(), fit.par, nullptr, XErrors::kEffective);
  EXPECT_EQ(result.end, LeastSquaresEnd::kNoProgress);
  EXPECT_FALSE(result.reducedChiSquare.has_value());
  EXPECT_FALSE(result.confidencePercent.has_value());
}

TEST(RefinedFit, HasNoProbabilityOfAChiSquareBeyondTheRangeOfItsFunction) {
  FitCase fit("a+0*x", "a");
  fit.data({1, 2, 3}, {1E150, -1E150, 1E150}, {1, 1, 1});
  fit.start({1});
  const RefinedFit result = refine(fit.problem(), fit.par, nullptr, XErrors::kEffective);
  EXPECT_TRUE(result.reducedChiSquare.has_value());
  EXPECT_FALSE(result.confidencePercent.has_value());
}

// ---- Errors in x

FitCase lineWithXErrors() {
  FitCase fit("b*x+c", "b,c");
  fit.data({0.1, 0.9, 2.2, 2.9, 4.1, 5.3}, {1.1, 2.8, 5.3, 6.7, 9.4, 11.2}, {0.2, 0.2, 0.3, 0.2, 0.2, 0.4},
           {0.1, 0.2, 0.1, 0.1, 0.2, 0.1});
  fit.start({1, 0});
  return fit;
}

TEST(RefinedFit, OfALineByDistanceIsThatByTheEffectiveVariance) {
  // Of a line both are the same sum, and the least one is where its derivatives vanish.
  FitCase fit = lineWithXErrors();
  const RefinedFit effective = refined(fit), orthogonal = refined(fit, XErrors::kOrthogonal);
  ASSERT_TRUE(effective.converged() && orthogonal.converged());
  for (int i = 1; i <= 2; ++i) {
    EXPECT_NEAR(orthogonal.par.ParValues[i] / effective.par.ParValues[i], 1, kIterated);
    EXPECT_NEAR(orthogonal.error(i) / effective.error(i), 1, kMinimum);
  }
  const auto chiSquare = [&](double b, double c) {
    double sum = 0;
    for (int j = 1; j <= 6; ++j) {
      const double e = b * fit.points.Xpnt[j] + c - fit.points.Ypnt[j];
      sum += e * e / (std::pow(fit.points.ErrYpnt[j], 2) + std::pow(b * fit.points.ErrXpnt[j], 2));
    }
    return sum;
  };
  const double b = effective.par.ParValues[1], c = effective.par.ParValues[2], h = 1E-4;
  EXPECT_NEAR(chiSquare(b, c), effective.chiSquare, kIterated);
  EXPECT_NEAR((chiSquare(b + h, c) - chiSquare(b - h, c)) / h, 0, kSixDigits);
  EXPECT_NEAR((chiSquare(b, c + h) - chiSquare(b, c - h)) / h, 0, kSixDigits);
}

TEST(RefinedFit, TakesTheDistanceAlongXOfPointsWithoutErrorsInY) {
  FitCase fit("b*x+c", "b,c");
  fit.data({0.1, 0.9, 2.2, 2.9, 4.1, 5.3}, {1.1, 2.8, 5.3, 6.7, 9.4, 11.2}, {0, 0, 0, 0, 0, 0},
           {0.1, 0.2, 0.1, 0.1, 0.2, 0.1});
  fit.start({1, 0.5});
  const RefinedFit effective = refined(fit), orthogonal = refined(fit, XErrors::kOrthogonal);
  ASSERT_TRUE(effective.converged() && orthogonal.converged());
  for (int i = 1; i <= 2; ++i) {
    EXPECT_NEAR(orthogonal.par.ParValues[i] / effective.par.ParValues[i], 1, kMinimum);
    EXPECT_NEAR(orthogonal.error(i) / effective.error(i), 1, 1E-4);
  }
}

TEST(RefinedFit, TakesTheDistanceFromACurve) {
  // From (0, 1) the nearest places of y = a x^2 with a = 1 are at x^2 = 1/2: squared distance 3/4.
  FitCase fit("a*x*x", "a");
  fit.data({0.2, 1.5}, {1, 2.25}, {1, 1}, {1, 1});
  fit.start({1});
  OrthogonalResiduals residuals(fit.problem(), fit.par);
  std::vector<double> r(2);
  residuals.at(std::vector<double>{1}, r);
  // The foot x of (0.2, 1): 2 (x^2 - 1) x + x - 0.2 = 0.
  double x = 0.8;
  for (int k = 0; k < 50; ++k) x -= (2 * (x * x - 1) * x + x - 0.2) / (6 * x * x - 1);
  EXPECT_NEAR(r[0], -std::hypot(x * x - 1, x - 0.2), kIterated);
  EXPECT_NEAR(r[1], 0, kManyRoundings);
}

TEST(RefinedFit, TakesSlopesOfWhatCanBeComputedAroundAPoint) {
  // The places of a slope are 0.001 and 0.002 away on both sides. At 0 the value is 1 and the slope 2, so that the
  // error of y - 2 becomes sqrt(1 + 4).
  struct Edge {
    const char* within;
    double other;
  };
  for (const auto& [within, other] :
       {Edge{"x+1", 1}, Edge{"x+0.0015", 1}, Edge{"x+0.0005", 1}, Edge{"0.0005-x", -1}}) {
    FitCase fit(std::string("a*x+x*x+1+0*SQR(") + within + ")", "a");
    fit.data({0, other}, {2, 0}, {1, 1}, {1, 1});
    fit.start({2});
    EffectiveResiduals residuals(fit.problem(), fit.par);
    std::vector<double> r(2);
    residuals.at(std::vector<double>{2}, r);
    EXPECT_NEAR(r[0], -1 / std::sqrt(5), kMinimum) << within;
  }
}

TEST(RefinedFit, TakesTheStepOfSlopesFromXWhereThatHasNoRange) {
  // The difference of fourth order with the step h is 2 - 4 k h^4 here, which is to be -2: so h is 0.001 at 0, and a
  // thousandth of x elsewhere.
  struct OnePlace {
    const char* formula;
    std::vector<double> x;
  };
  for (const auto& [formula, x] : {OnePlace{"a*x+1E12*x^5", {0}}, OnePlace{"a*x+(x-1000)^5", {1000}},
                                   OnePlace{"a*x+(x+1000)^5", {-1000, -1000}}, OnePlace{"a*x", {}}}) {
    FitCase fit(formula, "a");
    fit.points.allocate(static_cast<int>(x.size()), kTrue);
    for (int j = 1; j <= fit.points.NumPnt; ++j) {
      fit.points.Xpnt[j] = x.front();
      fit.points.Ypnt[j] = 2 * x.front() + 1;
      fit.points.ErrXpnt[j] = fit.points.ErrYpnt[j] = 1;
    }
    fit.start({2});
    EffectiveResiduals residuals(fit.problem(), fit.par);
    std::vector<double> r(residuals.count());
    residuals.at(std::vector<double>{2}, r);
    for (const double residual : r) EXPECT_NEAR(residual, -1 / std::sqrt(5), kMinimum) << formula;
    EXPECT_EQ(r.size(), x.size());
  }
}

TEST(RefinedFit, TakesSlopesAtTheEdgeFromTheSideThatWorks) {
  FitCase fit("a*x^1.5", "a");
  fit.data({0, 1, 2, 3}, {0, 1.1, 2.7, 5.3}, {0.1, 0.1, 0.1, 0.1}, {0.1, 0.1, 0.1, 0.1});
  fit.start({2});
  EXPECT_TRUE(refined(fit).converged());
}

}  // namespace
}  // namespace vk
