#include "numeric/CholeskyFactor.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "doubles/Tolerances.h"

namespace vk {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::Pointwise;

/// A matrix from its lower triangle, row by row.
SymmetricMatrix lower(int size, const std::vector<double>& numbers) {
  SymmetricMatrix matrix(size);
  auto number = numbers.begin();
  for (int a = 1; a <= size; ++a) {
    for (int b = 1; b <= a; ++b) matrix.set(a, b, *number++);
  }
  return matrix;
}

TEST(CholeskyFactor, IsTheRootOfAMatrix) {
  const auto factor = CholeskyFactor::of(lower(3, {4, 2, 10, -6, 0, 14}));
  ASSERT_TRUE(factor.has_value());
  EXPECT_THAT(factor->row(1), ElementsAre(2));
  EXPECT_THAT(factor->row(2), ElementsAre(1, 3));
  EXPECT_THAT(factor->row(3), ElementsAre(-3, 1, 2));
}

TEST(CholeskyFactor, MayBeSingular) {
  EXPECT_THAT(CholeskyFactor::of(lower(2, {4, -6, 9})).value().row(2), ElementsAre(-3, 0));
  EXPECT_THAT(CholeskyFactor::of(lower(2, {0, 0, 9})).value().row(2), ElementsAre(0, 3));
  const auto sum = CholeskyFactor::of(lower(3, {1, 0, 1, 1, 1, 2}));
  EXPECT_THAT(sum.value().row(3), ElementsAre(1, 1, 0));
  // A last digit too much is rounding.
  for (const double unit : {1.0, 1E-20, 1E20})
    EXPECT_TRUE(CholeskyFactor::of(lower(2, {unit, (1 + 1E-15) * unit, unit})).has_value()) << unit;
  // Two are one, and the third goes with both.
  EXPECT_THAT(CholeskyFactor::of(lower(3, {1, 1, 1, 0.6, 0.6, 1})).value().row(3), ElementsAre(0.6, 0, 0.8));
}

TEST(CholeskyFactor, TakesVariancesOfAnySize) {
  const auto factor = CholeskyFactor::of(lower(2, {1E-20, 0.8, 1E20}));
  ASSERT_TRUE(factor.has_value());
  EXPECT_THAT(factor->row(2), Pointwise(DoubleNear(kThreeDigits), {8E9, 6E9}));
}

TEST(CholeskyFactor, IsMissingWhereNoErrorsHaveSuchCovariances) {
  EXPECT_FALSE(CholeskyFactor::of(lower(1, {-1})).has_value());
  EXPECT_FALSE(CholeskyFactor::of(lower(2, {1, 1.001, 1})).has_value());
  EXPECT_FALSE(CholeskyFactor::of(lower(2, {0, 1, 1})).has_value());
  // Two are one, but the third goes with one and against the other.
  EXPECT_FALSE(CholeskyFactor::of(lower(3, {1, 1, 1, 0.5, -0.5, 1})).has_value());
  // Each pair could be; all three together cannot.
  EXPECT_FALSE(CholeskyFactor::of(lower(3, {1, 0.9, 1, 0.9, -0.9, 1})).has_value());
  EXPECT_FALSE(CholeskyFactor::of(lower(1, {std::numeric_limits<double>::quiet_NaN()})).has_value());
}

}  // namespace
}  // namespace vk
