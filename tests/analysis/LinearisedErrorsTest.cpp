#include "analysis/LinearisedErrors.h"

#include <cmath>

#include "analysis/FitFixture.h"
#include "doubles/Tolerances.h"
#include "numeric/SampleValues.h"

namespace vk {
namespace {

TEST(LinearisedErrors, AreThoseOfTheNormalEquationsOfALine) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  const auto errors = fit.linearised(fit.fit().chi_square.value());
  ASSERT_TRUE(errors.has_value());
  EXPECT_NEAR((*errors)[1], 0.1 / std::sqrt(10), kIterated);
  EXPECT_NEAR((*errors)[2], 0.1 * std::sqrt(1.0 / 5 + 9.0 / 10), kIterated);
}

TEST(LinearisedErrors, ComeInTheOrderOfTheFreeParameters) {
  FitCase fit("a*x*x+b*x+c", "a,b,c");
  fit.data(kFive, {3, 8, 15, 24, 35}, kTenths);
  fit.start({1, 2, 0}, "a,b");
  const auto errors = fit.linearised(fit.fit().chi_square.value());
  ASSERT_EQ(errors->upper(), 1);
  EXPECT_NEAR((*errors)[1], 0.1 / std::sqrt(5), kIterated);
}

TEST(LinearisedErrors, UseTheEffectiveErrorsOfDataWithErrorsOfX) {
  FitCase fit("b*x+c", "b,c");
  fit.data({1, 3}, {3, 7}, {0.3, 0.3}, {0.2, 0.2});
  fit.start({1, 2});
  const auto errors = fit.linearised(fit.fit().chi_square.value());
  // Slope 2: each point 0.5; the slope's error is sqrt(2) * 0.5 / 2.
  EXPECT_NEAR((*errors)[1], std::sqrt(0.5) * 0.5, kMinimum);
}

TEST(LinearisedErrors, DoNotDependOnTheSizeOfTheFitsErrors) {
  FitCase fit("A*EXP(-B*x)", "A,B");
  fit.data(kFive, {6, 3.7, 2.2, 1.35, 0.8}, kTenths);
  fit.start({10, 0.5});
  const double chiSquare = fit.fit().chi_square.value();
  const auto before = fit.linearised(chiSquare);
  for (double scale : {0.0, 1E-6, 100.0, 1E8, std::nan("")}) {
    for (int i = 1; i <= 2; ++i) fit.par.ParDeltas[i] = scale * (*before)[i];
    const auto after = fit.linearised(chiSquare);
    ASSERT_TRUE(after.has_value());
    for (int i = 1; i <= 2; ++i) EXPECT_NEAR((*after)[i] / (*before)[i], 1, kMinimum) << scale;
  }
}

TEST(LinearisedErrors, WithoutADegreeOfFreedomTheFitsErrorsTakeNoPart) {
  // Two points, two parameters, and errors that nobody knew: the solution is exact, and A is as uncertain as y(0).
  FitCase fit("A*EXP(-B*x)", "A,B");
  fit.data({0, 1}, {1E-5, 5E-6}, {1E8, 1E8});
  fit.start({1E-5, std::log(2.0)});
  for (int i = 1; i <= 2; ++i) fit.par.ParDeltas[i] = 1E8;
  const auto errors = fit.linearised(0);
  ASSERT_TRUE(errors.has_value());
  EXPECT_NEAR((*errors)[1] / 1E8, 1, kByDifferences);
  // B = LOG(y(0)/y(1)): its error is that of both logarithms.
  EXPECT_NEAR((*errors)[2] / (1E8 * std::hypot(1 / 1E-5, 1 / 5E-6)), 1, kByDifferences);
}

TEST(LinearisedErrors, AreMissingWhenParametersCannotBeToldApart) {
  FitCase fit("a+b", "a,b");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 2});
  EXPECT_FALSE(fit.linearised(1).has_value());
}

TEST(LinearisedErrors, AreMissingWhenAParameterHasNoEffect) {
  FitCase fit("b*x+0*c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 2});
  EXPECT_FALSE(fit.linearised(1).has_value());
}

TEST(LinearisedErrors, LeaveOutPointsThatFail) {
  FitCase fit("b+0*LOG(x)", "b");
  fit.data({1, -1, 2, 3}, {1, 2, 3, 4}, {1, 1, 0, 1});
  fit.start({1});
  const auto errors = fit.linearised(1);
  EXPECT_NEAR((*errors)[1], 1 / std::sqrt(2), kIterated);
}

TEST(LinearisedErrors, LeaveValuesAsTheyWere) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.fit();
  const Array<double> values = fit.par.ParValues;
  fit.linearised(1);
  EXPECT_EQ(fit.par.ParValues, values);
}

// ---- Steps ------------------------------------------------------------------------------------------------

TEST(LinearisedErrors, OfInventedErrorsFarAboveTheScatterAreThoseOfTheNormalEquations) {
  // Points of which nobody knows the errors get 1, though they scatter by 1E-5.
  FitCase fit("A*EXP(-B*x)", "A,B");
  std::vector<double> y;
  for (double x : kFive) y.push_back(1E-3 * std::exp(-0.5 * x) + (y.size() % 2 == 0 ? 1E-5 : -1E-5));
  fit.data(kFive, y, std::vector<double>(5, 1));
  fit.start({1E-3, 0.5});
  for (int i = 1; i <= 2; ++i) fit.par.ParDeltas[i] = 1000;
  const auto errors = fit.linearised(5E-10);
  ASSERT_TRUE(errors.has_value());
  double aa = 0, ab = 0, bb = 0;
  for (double x : kFive) {
    const double byA = std::exp(-0.5 * x), byB = -1E-3 * x * byA;
    aa += byA * byA, ab += byA * byB, bb += byB * byB;
  }
  const double determinant = aa * bb - ab * ab;
  EXPECT_NEAR((*errors)[1] / std::sqrt(bb / determinant), 1, kByDifferences);
  EXPECT_NEAR((*errors)[2] / std::sqrt(aa / determinant), 1, kByDifferences);
}

TEST(LinearisedErrors, StepFromZeroByTheErrorOrByAHundredth) {
  // A sine of which only the right size of step sees the slope: a period of 1E-5 against one of 6.
  for (const auto& [frequency, error] : {std::pair{1.0, 0.0}, {1.0, 3.0}, {1E5, 1E-4}}) {
    FitCase fit("SIN(a*x)", "a");
    fit.data({frequency, 2 * frequency}, {0, 0}, {1, 1});
    fit.start({0});
    fit.par.ParDeltas[1] = error;
    const auto errors = fit.linearised(1);
    ASSERT_TRUE(errors.has_value()) << frequency;
    EXPECT_NEAR((*errors)[1] * frequency, 1 / std::sqrt(5), kByDifferences) << frequency;
  }
}

TEST(LinearisedErrors, TakeStepsThatKeepEveryPointOfTheSolution) {
  // Long steps lead to where the logarithm of the first point fails; the other points alone would settle first.
  FitCase fit("LOG(x-c)", "c");
  fit.data({1.001, 50, 100}, {0, 0, 0}, {1, 1, 1});
  fit.start({1});
  const auto errors = fit.linearised(1);
  ASSERT_TRUE(errors.has_value());
  const double slopes = 1E6 + 1 / (49.0 * 49) + 1 / (99.0 * 99);
  EXPECT_NEAR((*errors)[1] * std::sqrt(slopes), 1, kByDifferences);
}

TEST(LinearisedErrors, AreMissingWhereTheDerivativesNeverSettle) {
  // At the edge of its range the square root has no derivative.
  FitCase fit("SQR(x-c)", "c");
  fit.data({1, 5, 9}, {0, 2, 3}, {1, 1, 1});
  fit.start({1});
  EXPECT_FALSE(fit.linearised(1).has_value());
  // Steps that change nothing in 15 digits.
  FitCase lost("1E17+b+0*x", "b");
  lost.data(kFive, kLineY, kTenths);
  lost.start({1});
  EXPECT_FALSE(lost.linearised(1).has_value());
}

TEST(LinearisedErrors, AreMissingWhenTheModelHasAParameterTooMany) {
  // The differences tell such parameters apart by their rounding alone.
  for (const char* formula : {"a*EXP(b*x+c)", "a/(b+c*x)", "a*b*x+c", "(a*x+b)^2/c", "a+b*x+c+1"}) {
    for (const double size : {0.37, 1.0, 1.7, 3.3, 41.9}) {
      FitCase fit(formula, "a,b,c");
      fit.data(kFive, {6, 3.7, 2.2, 1.35, 0.8}, kTenths);
      fit.start({10 * size, 0.5 / size, 0.3 * size});
      EXPECT_FALSE(fit.linearised(1).has_value()) << formula << ' ' << size;
    }
  }
}

}  // namespace
}  // namespace vk
