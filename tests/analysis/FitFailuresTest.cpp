#include <cmath>

#include "analysis/FitFixture.h"
#include "doubles/Tolerances.h"
#include "numeric/SampleValues.h"

namespace vk {
namespace {

using testing::ElementsAre;

FitCase failingLine() {
  return {"b*x+c", "b,c"};
}

// ---- Failures ---------------------------------------------------------------------------------------------

TEST(FitData, TellsOfAParameterWithoutEffectByItsFreeNumber) {
  FitCase fit("a*x+0*b+c*x*x", "a,b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 7, 3}, "a");
  const FitResult result = fit.fit();
  EXPECT_EQ(result.failure.parameter, 1);
  EXPECT_EQ(result.status, FitStatus::kFailed);
  EXPECT_EQ(result.failure.end, MinimiseEnd::kNoEffect);
  EXPECT_NE(result.reason, "");
  EXPECT_FALSE(fit.complete);
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "fail"));
}

TEST(FitData, GivesTheOldValuesBackWhenAParameterHasNoEffect) {
  FitCase fit("b*x+0*c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 7});
  EXPECT_EQ(fit.fit().failure.parameter, 2);
  EXPECT_EQ(fit.value(1), 1);
  EXPECT_EQ(fit.value(2), 7);
  EXPECT_EQ(fit.error(2), 1);
  EXPECT_EQ(fit.par.FreeValues[2], 7);
}

TEST(FitData, TellsTheSameOfAParameterThatIsZeroWithAccuracyZero) {
  FitCase fit = failingLine();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 0});
  fit.par.FreeSteps[2] = 0;
  EXPECT_EQ(fit.fit().failure.parameter, 2);
}

TEST(FitData, EndsSilentlyOnADomainErrorAtTheLastPoint) {
  FitCase fit("b*LOG(x)", "b");
  fit.data({1, 2, -1}, {1, 2, 3}, {1, 1, 1});
  fit.start({2});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kFailed);
  EXPECT_EQ(result.failure.end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(result.evaluations, 1);
  EXPECT_FALSE(fit.complete);
  EXPECT_EQ(fit.value(1), 2);
  EXPECT_THAT(fit.log.events, ElementsAre("start", "fail"));
}

TEST(FitData, LeavesTheValuesTriedLastOnASilentEnd) {
  // b = 2 is fine; the first difference, b = 2.02, takes the logarithm below zero.
  FitCase fit("LOG(2.01-b)+x", "b");
  fit.data({1, 2}, {1, 2}, {1, 1});
  fit.start({2});
  EXPECT_EQ(fit.fit().failure.end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(fit.value(1), 2.02);
}

TEST(FitData, GoesOnAfterADomainErrorInTheMiddle) {
  // QUIRK: the flag is cleared by each evaluation, so that only the last point's failure is seen.
  FitCase fit("b*x+0*LOG(x)", "b");
  fit.data({1, -1, 2}, {2, 5, 4}, {0.1, 0.1, 0.1});
  fit.start({1});
  const FitResult result = fit.fit();
  EXPECT_NE(result.status, FitStatus::kFailed);
  EXPECT_TRUE(fit.complete);
}

TEST(FitData, LeavesOutAPointInTheMiddleWithoutError) {
  // The residual cannot be divided by 0 and stays what it was: 0.
  FitCase fit = failingLine();
  fit.data(kFive, {1, 2, 77, 4, 5}, {0.1, 0.1, 0, 0.1, 0.1});
  fit.start({0.5, 0.5});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  EXPECT_NEAR(fit.value(1), 1, kMinimum);
  EXPECT_NEAR(fit.value(2), 0, kSixDigits);
}

TEST(FitData, EndsSilentlyWhenTheLastPointHasNoError) {
  FitCase fit = failingLine();
  fit.data({1, 2, 3}, {1, 2, 3}, {0.1, 0.1, 0});
  fit.start({0.5, 0.5});
  EXPECT_EQ(fit.fit().failure.end, MinimiseEnd::kResidualsFailed);
  EXPECT_FALSE(fit.complete);
}

TEST(FitData, EndsSilentlyWhenParametersCannotBeToldApart) {
  FitCase fit("a+b", "a,b");
  fit.data({1, 2, 3, 4}, {1, 2, 3, 4}, {1, 1, 1, 1});
  fit.start({1, 2});
  fit.par.FreeSteps[1] = 0.5;
  fit.par.FreeSteps[2] = 0.5;
  const FitResult result = fit.fit();
  EXPECT_EQ(result.failure.end, MinimiseEnd::kIndistinguishable);
  EXPECT_FALSE(fit.complete);
  EXPECT_EQ(fit.value(1), 1);
  EXPECT_EQ(fit.value(2), 2);
}

TEST(FitData, EndsSilentlyWithErrorsThatAreNotFinite) {
  // The parameter may be anything up to 1E160, whose square is beyond all numbers.
  FitCase fit("c*1E-160*x", "c");
  fit.data({1, 2}, {0, 0}, {1, 1}, {1, 1});
  fit.start({1E10});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kFailed);
  EXPECT_EQ(result.failure.end, MinimiseEnd::kErrorsNotFinite);
  EXPECT_EQ(result.reason, "errori non finiti");
  EXPECT_FALSE(result.reduced_chi_square.has_value());
  EXPECT_FALSE(fit.complete);
  EXPECT_EQ(fit.value(1), fit.par.FreeValues[1]);
  EXPECT_NE(fit.value(1), 1E10) << "the value tried last";
  EXPECT_EQ(fit.error(1), 1) << "what it held";
}

// ---- Any problem ------------------------------------------------------------------------------------------

// Numbers of very different sizes, the same in each run.
class Numbers {
 public:
  double next() {
    state_ = state_ * 1664525U + 1013904223U;
    const double fraction = static_cast<double>(state_ >> 8) / 8388608.0 - 1;
    const int size = static_cast<int>(state_ % 13);
    return size == 0 ? 0 : fraction * std::pow(10, size < 10 ? size % 3 : size * 20 - 200);
  }

 private:
  unsigned state_ = 2024;
};

TEST(FitData, EndsWithFiniteNumbersWhateverTheProblem) {
  const std::pair<const char*, const char*> models[] = {
      {"a+0*x", "a"},     {"a*x+b", "a,b"},           {"a*EXP(b*x)", "a,b"},      {"a*EXP(b*x)+c", "a,b,c"},
      {"a/(x-b)", "a,b"}, {"SQR(a*x)+LOG(b)", "a,b"}, {"a*x^b+c*x^d", "a,b,c,d"}, {"a+b+c*x", "a,b,c"}};
  Numbers numbers;
  int failures = 0, completions = 0;
  for (int k = 0; k < 2000; ++k) {
    const auto& [formula, names] = models[k % 8];
    FitCase fit(formula, names);
    const int points = 1 + k % 7;
    Values x, y, dy, dx;
    for (int j = 0; j < points; ++j) {
      x.push_back(numbers.next()), y.push_back(numbers.next()), dy.push_back(numbers.next());
      if (k % 3 == 0) dx.push_back(numbers.next());
    }
    fit.data(x, y, dy, dx);
    Values start;
    for (int i = 0; i < fit.par.ParCount; ++i) start.push_back(numbers.next());
    fit.start(start);
    const FitResult result = fit.fit();
    EXPECT_LE(result.evaluations, 2 * 4 * 1003);
    const bool residualsFailed = result.failure.end == MinimiseEnd::kResidualsFailed;
    EXPECT_EQ(result.chi_square.has_value(), !residualsFailed) << k;
    EXPECT_TRUE(residualsFailed || std::isfinite(*result.chi_square)) << k;
    if (result.status == FitStatus::kFailed) {
      ++failures;
      EXPECT_FALSE(fit.complete) << k;
      EXPECT_NE(result.reason, "");
      continue;
    }
    ++completions;
    for (int i = 1; i <= fit.par.ParCount; ++i) {
      EXPECT_TRUE(std::isfinite(fit.value(i)) && std::isfinite(fit.error(i))) << k << ' ' << formula;
    }
  }
  EXPECT_GT(failures, 100);
  EXPECT_GT(completions, 100);
}

}  // namespace
}  // namespace vk
