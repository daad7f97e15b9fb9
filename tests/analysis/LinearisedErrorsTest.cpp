#include "analysis/LinearisedErrors.h"

#include <cmath>

#include "analysis/FitFixture.h"
#include "analysis/SampleValues.h"

namespace vk {
namespace {

TEST(LinearisedErrors, AreThoseOfTheNormalEquationsOfALine) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.fit();
  const auto errors = linearisedErrors(fit.session, fit.dialogs);
  ASSERT_TRUE(errors.has_value());
  EXPECT_NEAR((*errors)[1], 0.1 / std::sqrt(10), 1E-9);
  EXPECT_NEAR((*errors)[2], 0.1 * std::sqrt(1.0 / 5 + 9.0 / 10), 1E-9);
}

TEST(LinearisedErrors, ComeInTheOrderOfTheFreeParameters) {
  FitCase fit("a*x*x+b*x+c", "a,b,c");
  fit.data(kFive, {3, 8, 15, 24, 35}, kTenths);
  fit.start({1, 2, 0}, "a,b");
  fit.fit();
  const auto errors = linearisedErrors(fit.session, fit.dialogs);
  ASSERT_EQ(errors->upper(), 1);
  EXPECT_NEAR((*errors)[1], 0.1 / std::sqrt(5), 1E-9);
}

TEST(LinearisedErrors, UseTheEffectiveErrorsOfDataWithErrorsOfX) {
  FitCase fit("b*x+c", "b,c");
  fit.data({1, 3}, {3, 7}, {0.3, 0.3}, {0.2, 0.2});
  fit.start({1, 2});
  fit.fit();
  const auto errors = linearisedErrors(fit.session, fit.dialogs);
  // Slope 2: each point 0.5; the slope's error is sqrt(2) * 0.5 / 2.
  EXPECT_NEAR((*errors)[1], std::sqrt(0.5) * 0.5, 1E-6);
}

TEST(LinearisedErrors, DoNotDependOnTheSizeOfTheFitsErrors) {
  FitCase fit("A*EXP(-B*x)", "A,B");
  fit.data(kFive, {6, 3.7, 2.2, 1.35, 0.8}, kTenths);
  fit.start({10, 0.5});
  fit.fit();
  const auto before = linearisedErrors(fit.session, fit.dialogs);
  for (double scale : {0.0, 1E-6, 100.0, std::nan("")}) {
    for (int i = 1; i <= 2; ++i) fit.session.par.ParDeltas[i] = scale * (*before)[i];
    const auto after = linearisedErrors(fit.session, fit.dialogs);
    ASSERT_TRUE(after.has_value());
    for (int i = 1; i <= 2; ++i) EXPECT_NEAR((*after)[i] / (*before)[i], 1, 1E-6) << scale;
  }
}

TEST(LinearisedErrors, AreMissingWhenParametersCannotBeToldApart) {
  FitCase fit("a+b", "a,b");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 2});
  EXPECT_FALSE(linearisedErrors(fit.session, fit.dialogs).has_value());
}

TEST(LinearisedErrors, AreMissingWhenAParameterHasNoEffect) {
  FitCase fit("b*x+0*c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 2});
  EXPECT_FALSE(linearisedErrors(fit.session, fit.dialogs).has_value());
}

TEST(LinearisedErrors, LeaveOutPointsThatFail) {
  FitCase fit("b+0*LOG(x)", "b");
  fit.data({1, -1, 2, 3}, {1, 2, 3, 4}, {1, 1, 0, 1});
  fit.start({1});
  const auto errors = linearisedErrors(fit.session, fit.dialogs);
  EXPECT_NEAR((*errors)[1], 1 / std::sqrt(2), 1E-9);
}

TEST(LinearisedErrors, LeaveValuesAndFlagAsTheyWere) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.fit();
  const Array<double> values = fit.session.par.ParValues;
  fit.session.ErrFlag = 7;
  linearisedErrors(fit.session, fit.dialogs);
  EXPECT_EQ(fit.session.par.ParValues, values);
  EXPECT_EQ(fit.session.ErrFlag, 7);
}

}  // namespace
}  // namespace vk
