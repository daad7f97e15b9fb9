#include "analysis/DerivedQuantities.h"

#include <gmock/gmock.h>

#include <cmath>

#include "analysis/ModelFixture.h"
#include "doubles/Tolerances.h"
#include "expr/Compiler.h"

namespace vk {
namespace {

using ::testing::DoubleNear;
using ::testing::Optional;

constexpr double kLog2 = 0.69314718055994531;

/// A quantity of the parameters A, k and b, of which A and k are free.
class DerivedQuantityTest : public testing::Test {
 protected:
  DerivedQuantityTest() : par(parametersOf({"A", "k", "b"})) {
    StoreParameters(par, std::vector{400.0, 0.2, 5.0}, std::vector{1.0, 1.0, 0.0}, 1);
  }

  static CovarianceMatrix covariance(double errorA, double errorK, double correlation) {
    CorrelationMatrix correlations(2);
    correlations.set(2, 1, correlation);
    return covarianceOf(std::vector{errorA, errorK}, correlations);
  }

  QuantityValue of(const std::string& text, const std::optional<CovarianceMatrix>& errors) {
    Formula formula(compile(quantityDefinition(text, par)).code);
    return quantityOf(formula, par, errors, listener);
  }

  ParameterSet par;
  NoListener listener;
};

TEST_F(DerivedQuantityTest, HasTheErrorOfItsParameter) {
  const QuantityValue half = of("LOG(2)/k", covariance(7, 0.003, 0.9));
  EXPECT_THAT(half.value, Optional(DoubleNear(kLog2 / 0.2, kFewRoundings)));
  EXPECT_THAT(half.error, Optional(DoubleNear(kLog2 / 0.04 * 0.003, kDerived)));
}

TEST_F(DerivedQuantityTest, KnowsWhatTheCorrelationTakesAway) {
  // Relative errors of .02 each: together sqrt(2)*.02 where they are independent, nearly nothing where they are not.
  const auto part = [&](double correlation) {
    return of("A/k", covariance(8, 0.004, correlation)).error.value_or(-1) / 2000;
  };
  EXPECT_NEAR(part(0), 0.02 * std::sqrt(2), kDerived);
  EXPECT_NEAR(part(0.99), 0.02 * std::sqrt(2 * 0.01), kDerived);
  EXPECT_NEAR(part(-1), 0.04, kDerived);
  EXPECT_NEAR(part(1 - 1E-10), 0.02 * std::sqrt(2 * 1E-10), 1E-11);
}

TEST_F(DerivedQuantityTest, HasNoErrorWhereOnlyRoundingIsLeftOfIt) {
  for (const double correlation : {1.0, 1 - 1E-15}) {
    const QuantityValue ratio = of("A/k", covariance(8, 0.004, correlation));
    EXPECT_TRUE(ratio.value.has_value());
    EXPECT_FALSE(ratio.error.has_value());
  }
}

TEST_F(DerivedQuantityTest, TakesConstantParametersAsExact) {
  EXPECT_THAT(of("b*b", covariance(8, 0.004, 0)).error, Optional(0));
  EXPECT_THAT(of("A+b", covariance(8, 0.004, 0)).error, Optional(DoubleNear(8, kIterated)));
}

TEST_F(DerivedQuantityTest, MayHaveNoSlope) {
  EXPECT_THAT(of("A*0", covariance(8, 0.004, 0)).value, Optional(0));
  EXPECT_THAT(of("A*0", covariance(8, 0.004, 0)).error, Optional(0));
  EXPECT_THAT(of("7", covariance(8, 0.004, 0)).error, Optional(0));
  EXPECT_THAT(of("(A-400)^2", covariance(8, 0.004, 0)).error, Optional(DoubleNear(0, kIterated)));
  EXPECT_THAT(of("COS(A-400)", covariance(8, 0.004, 0)).error, Optional(DoubleNear(0, kByDifferences)));
}

TEST_F(DerivedQuantityTest, StaysWithinItsDomain) {
  // The first steps lead to where there is no logarithm.
  EXPECT_THAT(of("LOG(A-399)", covariance(0.01, 0.004, 0)).error, Optional(DoubleNear(0.01, kDerived)));
}

TEST_F(DerivedQuantityTest, TakesParametersOfAnySize) {
  StoreParameters(par, std::vector{0.0, 1E-20, 5.0}, std::vector{1.0, 1.0, 0.0}, 1);
  EXPECT_THAT(of("A+1", covariance(1E-9, 1E-22, 0)).error, Optional(DoubleNear(1E-9, kFewRoundings)));
  EXPECT_THAT(of("2*k", covariance(1E-9, 1E-22, 0)).error, Optional(DoubleNear(2E-22, 1E-30)));
  EXPECT_THAT(of("A", covariance(1E-9, 1E-22, 0)).error, Optional(DoubleNear(1E-9, 1E-18)));
}

TEST_F(DerivedQuantityTest, IsMissingWhereItCannotBeComputed) {
  const QuantityValue none = of("LOG(b-5)", covariance(8, 0.004, 0));
  EXPECT_FALSE(none.value.has_value());
  EXPECT_FALSE(none.error.has_value());
  // At the end of its domain it has a value, but no derivative.
  const QuantityValue edge = of("SQR(A-400)", covariance(8, 0.004, 0));
  EXPECT_THAT(edge.value, Optional(0));
  EXPECT_FALSE(edge.error.has_value());
}

TEST_F(DerivedQuantityTest, HasNoErrorWithoutACovariance) {
  const QuantityValue sum = of("A+b", std::nullopt);
  EXPECT_THAT(sum.value, Optional(405));
  EXPECT_FALSE(sum.error.has_value());
}

TEST_F(DerivedQuantityTest, NamesOnlyParameters) {
  EXPECT_TRUE(compile(quantityDefinition("A*k+b", par)).ok);
  const Compilation wrong = compile(quantityDefinition("A*x", par));
  EXPECT_FALSE(wrong.ok);
  EXPECT_EQ(wrong.faults.front().kind, CompileFaultKind::kUnknownName);
}

TEST_F(DerivedQuantityTest, ANameOfSeveralParametersIsAmbiguousWhereItIsUsed) {
  const ParameterSet twice = parametersOf({"k", "A", "b", "A"});
  EXPECT_EQ(ambiguousParameter(compile(quantityDefinition("A/k", twice)).code, twice), 2);
  EXPECT_EQ(ambiguousParameter(compile(quantityDefinition("b/k", twice)).code, twice), 0);
}

}  // namespace
}  // namespace vk
