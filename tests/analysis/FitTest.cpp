#include <cmath>

#include "analysis/FitFixture.h"
#include "doubles/Tolerances.h"
#include "numeric/SampleValues.h"

namespace vk {
namespace {

using testing::ElementsAre;

FitCase lineCase() {
  return {"b*x+c", "b,c"};
}

// ---- Values, errors, counts -------------------------------------------------------------------------------

TEST(FitData, LeavesValuesAndErrorsInTheParameterTables) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  EXPECT_NEAR(fit.value(1), 1.99, kMinimum);
  EXPECT_NEAR(fit.value(2), 0.05, kMinimum);
  // By the formula of the directions; the exact errors are 0.0316 and 0.1049.
  EXPECT_NEAR(fit.error(1), 0.0316, 0.0316);
  EXPECT_NEAR(fit.error(2), 0.1049, 0.1049);
  EXPECT_EQ(fit.par.FreeValues[1], fit.value(1));
  EXPECT_EQ(result.M, 5);
  EXPECT_EQ(result.N, 2);
  EXPECT_EQ(result.degrees_of_freedom, 3);
  EXPECT_NEAR(result.chi_square.value(), 10.7, kMinimum);
  EXPECT_NEAR(*result.reduced_chi_square, 10.7 / 3, kMinimum);
  // Upper tail of the chi-square distribution with 3 degrees of freedom at 10.7.
  const double tail = std::erfc(std::sqrt(5.35)) + std::sqrt(21.4 / 3.14159265358979) * std::exp(-5.35);
  EXPECT_NEAR(*result.confidence_percent, 100 * tail, kSixDigits);
  EXPECT_EQ(result.reason, "");
  EXPECT_EQ(result.correlation.size(), 2);
  EXPECT_TRUE(fit.complete);
}

/// Hears of the work within iterations.
struct WorkLog : FitLog {
  int times = 0;
  void working() override { ++times; }
};

int timesHeardOf(int points) {
  FitCase fit = lineCase();
  std::vector<double> x, y, dy;
  for (int j = 0; j < points; ++j) {
    x.push_back(j);
    y.push_back(2.0 * j + 1);
    dy.push_back(1);
  }
  fit.data(x, y, dy);
  fit.start({1, 1});
  WorkLog log;
  fit.fit(log);
  return log.times;
}

TEST(FitData, TellsOfTheWorkWithinTheIterationsOfALargeSet) {
  EXPECT_EQ(timesHeardOf(5), 0);
  EXPECT_GT(timesHeardOf(20'000), 3);
}

TEST(FitData, KeepsConstantParametersAndTheOrderOfTheFreeOnes) {
  FitCase fit("a*x*x+b*x+c", "a,b,c");
  fit.data(kFive, {3, 8, 15, 24, 35}, kTenths);
  fit.start({0.5, 2, 1}, "b");
  const FitResult result = fit.fit();
  EXPECT_NEAR(fit.value(1), 1, kMinimum);
  EXPECT_EQ(fit.value(2), 2);
  EXPECT_EQ(fit.error(2), 0);
  EXPECT_NEAR(fit.value(3), 0, kSixDigits);
  ASSERT_EQ(result.N, 2);
  EXPECT_EQ(result.par.FreeIndex[1], 1);
  EXPECT_EQ(result.par.FreeIndex[2], 3);
}

TEST(FitData, FitsACompositeOfTheCatalogue) {
  FitCase fit("x", "b,c,A");
  fit.model = Model(2, 7);  // A exp(bx+c)
  Values x, y;
  for (int j = 1; j <= 6; ++j) x.push_back(j), y.push_back(5 * std::exp(-0.3 * j + 0.5));
  fit.data(x, y, Values(6, 0.1));
  fit.start({-0.2, 0.5, 4}, "c");  // which cannot be told apart from A
  fit.fit();
  EXPECT_NEAR(fit.value(1), -0.3, kThreeDigits);
  EXPECT_EQ(fit.value(2), 0.5);
  EXPECT_NEAR(fit.value(3), 5, 1E-2);
}

TEST(FitData, WritesTheLoweredAccuraciesBack) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.par.FreeSteps[1] = 0.5;
  fit.fit();
  EXPECT_LT(fit.par.FreeSteps[1], 0.5);
  EXPECT_NEAR(fit.par.FreeSteps[1], fit.error(1) / 10, fit.error(1) / 20);
}

TEST(FitData, StartsFromTheResultOfTheFitBefore) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  const int first = fit.fit().evaluations;
  const double slope = fit.value(1);
  EXPECT_LT(fit.fit().evaluations, first);
  EXPECT_NEAR(fit.value(1), slope, kIterated);
}

TEST(FitData, RunsOnceWithoutErrorsOfX) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish last"));
}

// ---- Errors of x ------------------------------------------------------------------------------------------

TEST(FitData, FitsTwiceWithEffectiveErrors) {
  FitCase fit = lineCase();
  const Values dx{0.01, 0.02, 0.03, 0.04, 0.05};
  fit.data(kFive, kLineY, kTenths, dx);
  fit.start({1, 1});
  const FitResult result = fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish", "start", "finish last"));
  const DataSet& data = fit.points;
  for (int j = 1; j <= 5; ++j) {
    // The slope of the first fit is 1.99.
    EXPECT_NEAR(data.ErrEff[j], std::sqrt(0.01 + std::pow(dx[static_cast<std::size_t>(j) - 1] * 1.99, 2)),
                1E-7);
    EXPECT_EQ(data.ErrYpnt[j], 0.1);
  }
  // The weighted line with those errors.
  double S = 0, Sx = 0, Sy = 0, Sxx = 0, Sxy = 0;
  for (int j = 1; j <= 5; ++j) {
    const double w = 1 / (data.ErrEff[j] * data.ErrEff[j]);
    S += w, Sx += w * data.Xpnt[j], Sy += w * data.Ypnt[j];
    Sxx += w * data.Xpnt[j] * data.Xpnt[j], Sxy += w * data.Xpnt[j] * data.Ypnt[j];
  }
  const double slope = (S * Sxy - Sx * Sy) / (S * Sxx - Sx * Sx);
  EXPECT_NEAR(fit.value(1), slope, kMinimum);
  EXPECT_NEAR(fit.value(2), (Sy - slope * Sx) / S, kMinimum);
  EXPECT_EQ(result.status, FitStatus::kCompleted);
}

TEST(FitData, TakesTheSlopeOverAHundredthOfTheRangeOnEachSide) {
  // x^3 over 0..10: h = 0.1, and ((x+h)^3 - (x-h)^3) / 2h = 3x^2 + h^2.
  FitCase fit("a*x^3", "a");
  fit.data({0, 5, 10}, {0, 125, 1000}, {1, 1, 1}, {1, 1, 1});
  fit.start({1});
  fit.fit();
  EXPECT_NEAR(fit.points.ErrEff[1], std::sqrt(1 + 0.01 * 0.01), kIterated);
  EXPECT_NEAR(fit.points.ErrEff[2], std::sqrt(1 + 75.01 * 75.01), kMinimum);
  EXPECT_NEAR(fit.points.ErrEff[3], std::sqrt(1 + 300.01 * 300.01), kMinimum);
}

TEST(FitData, CountsTheComputationsOfBothFits) {
  FitCase once = lineCase();
  once.data(kFive, kLineY, kTenths);
  once.start({1, 1});
  FitCase twice = lineCase();
  twice.data(kFive, kLineY, kTenths, Values(5, 0.01));
  twice.start({1, 1});
  EXPECT_GT(twice.fit().evaluations, once.fit().evaluations + 3);
}

TEST(FitData, TakesTheErrorsOfYAsEffectiveWhenAllXAreEqual) {
  FitCase fit("b*x", "b");
  fit.data({2, 2, 2}, {1, 2, 3}, {0.1, 0.2, 0.3}, {1, 1, 1});
  fit.start({1});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  for (int j = 1; j <= 3; ++j) EXPECT_EQ(fit.points.ErrEff[j], fit.points.ErrYpnt[j]);
}

TEST(FitData, TakesTheSlopeOfThePointBeforeAtTheEndsOfAllNumbers) {
  // A step beyond the outermost point leads out of the range of numbers. The slope is 1E-300.
  struct End {
    Values x, slopes;
  };
  for (const auto& [x, slopes] :
       {End{{1E308, 1.2E308, 1.79E308}, {1, 1, 1}}, End{{-1.79E308, -1.2E308, -1E308}, {0, 1, 1}}}) {
    FitCase fit("a*(x/1E300)", "a");
    fit.data(x, {x[0] / 1E300, x[1] / 1E300, x[2] / 1E300}, Values(3, 1E5), Values(3, 1E305));
    fit.start({1.5});
    EXPECT_EQ(fit.fit().status, FitStatus::kCompleted);
    for (int j = 1; j <= 3; ++j) {
      const double byX = slopes[static_cast<std::size_t>(j) - 1];
      EXPECT_NEAR(fit.points.ErrEff[j] / 1E5, std::sqrt(1 + byX), kMinimum) << x[0] << ", " << j;
    }
  }
}

TEST(FitData, OfNoPointsAndNoFreeParametersIsCompleted) {
  FitCase fit("a*x", "a");
  fit.points.allocate(0, kTrue);
  fit.start({1}, "a");
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish", "start", "finish last"));
  EXPECT_EQ(fit.value(1), 1);
}

TEST(FitData, DoesNotFitTwiceWhenTheFirstFitFails) {
  FitCase fit("b*LOG(x)", "b");
  fit.data({1, 2, -1}, {1, 2, 3}, {1, 1, 1}, {1, 1, 1});
  fit.start({1});
  fit.points.ErrEff[1] = 7;
  EXPECT_EQ(fit.fit().status, FitStatus::kFailed);
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "fail"));
  EXPECT_EQ(fit.points.ErrEff[1], 7);
}

TEST(FitData, FailsWhenTheSecondFitFails) {
  // The last point, of slope 0, has an error whose square is lost: 0 as an effective error.
  FitCase fit("b*x*x", "b");
  fit.data({-1, 1, 0}, {1, 2, 0}, {1, 1, 1E-170}, {1, 1, 1});
  fit.start({1});
  const FitResult result = fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish", "start", "fail"));
  EXPECT_EQ(result.status, FitStatus::kFailed);
}

TEST(FitData, FitsTwiceThoughTheConfidenceOfTheFirstFitHasSetTheFlag) {
  FitCase fit = lineCase();
  fit.data({1, 2}, {3, 5}, {0.1, 0.1}, {0.1, 0.1});
  fit.start({1, 2});
  const FitResult result = fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish", "start", "finish last"));
  EXPECT_EQ(result.status, FitStatus::kCompleted);
}

// ---- Degrees of freedom, confidence -----------------------------------------------------------------------

TEST(FitData, RunsWithoutDegreesOfFreedom) {
  FitCase fit = lineCase();
  fit.data({1, 2}, {3, 5}, {0.1, 0.1});
  fit.start({1, 2});
  const FitResult result = fit.fit();
  EXPECT_NEAR(fit.value(1), 2, kMinimum);
  EXPECT_NEAR(fit.value(2), 1, kMinimum);
  EXPECT_EQ(result.degrees_of_freedom, 0);
  EXPECT_FALSE(result.reduced_chi_square.has_value());
  EXPECT_FALSE(result.confidence_percent.has_value());
  EXPECT_EQ(fit.log.progresses.back().confidence, 0) << "shown, without meaning";
  EXPECT_FALSE(fit.complete);
}

TEST(FitData, HasTheConfidenceOfThousandsOfPointsWithoutABox) {
  const int points = 2000;
  FitCase fit("c", "c");
  Values x, y;
  for (int j = 0; j < points; ++j) {
    x.push_back(j);
    y.push_back(j % 2 == 0 ? 1 : -1);
  }
  // A chi-square of 0.988 for each of the 1999 degrees of freedom.
  fit.data(x, y, Values(points, std::sqrt(2000 / (0.988 * 1999))));
  fit.start({0.25});
  fit.par.FreeSteps[1] = 1E-3;
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  EXPECT_NEAR(*result.reduced_chi_square, 0.988, kIterated);
  // The tail of the chi-square distribution, by Wilson and Hilferty.
  const double z = (std::cbrt(0.988) - (1 - 2 / (9 * 1999.0))) / std::sqrt(2 / (9 * 1999.0));
  EXPECT_NEAR(*result.confidence_percent, 50 * std::erfc(z / std::sqrt(2)), 0.01);
  EXPECT_TRUE(fit.complete);
  ASSERT_FALSE(fit.log.progresses.empty());
  EXPECT_TRUE(fit.log.progresses[0].confidence.has_value()) << "the running figure too";
}

// ---- Events -----------------------------------------------------------------------------------------------

TEST(FitData, TellsProgressBeforeTheFirstIteration) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.fit();
  ASSERT_FALSE(fit.log.progresses.empty());
  EXPECT_EQ(fit.log.progresses[0].iteration, 0);
  EXPECT_EQ(fit.log.progresses[0].degreesOfFreedom, 3);
  // 1 + x against y at the start: residuals -0.1, -0.9, -2.2, -2.8, -4.1 over 0.1.
  EXPECT_NEAR(*fit.log.progresses[0].reducedChiSquare, (0.01 + 0.81 + 4.84 + 7.84 + 16.81) * 100 / 3,
              kIterated);
}

TEST(FitData, TwoSessionsAreFittedSideBySide) {
  FitCase one = lineCase(), other("c", "c");
  one.data(kFive, kLineY, kTenths);
  other.data({1, 2, 3}, {1, 2, 3}, {1, 1, 1});
  one.start({1, 1});
  other.start({1});
  other.fit();
  one.fit();
  EXPECT_NEAR(one.value(1), 1.99, kMinimum);
  EXPECT_NEAR(other.value(1), 2, kMinimum);
}

}  // namespace
}  // namespace vk
