#include "numeric/CovarianceMatrix.h"

#include <gtest/gtest.h>

#include <array>

#include "base/RuntimeError.h"

namespace vk {
namespace {

CovarianceMatrix sample() {
  CovarianceMatrix matrix(2);
  matrix.set(1, 1, 4);
  matrix.set(2, 2, 9);
  matrix.set(1, 2, -3);
  return matrix;
}

TEST(CovarianceMatrix, HoldsDeviationsAndCorrelations) {
  const CovarianceMatrix matrix = sample();
  EXPECT_EQ(matrix.deviation(1), 2);
  EXPECT_EQ(matrix.deviation(2), 3);
  EXPECT_EQ(matrix.correlation().at(2, 1), -0.5);
  EXPECT_EQ(matrix.correlation().at(2, 2), 1);
}

TEST(CovarianceMatrix, CorrelatesWhatHasNoErrorWithItself) {
  CovarianceMatrix matrix(2);
  matrix.set(1, 1, 4);
  EXPECT_EQ(matrix.correlation().at(2, 2), 1);
}

TEST(CovarianceMatrix, GivesTheVarianceOfAQuantity) {
  EXPECT_EQ(sample().variance(std::array{1.0, 2.0}), 4 + 36 - 12);
}

TEST(CovarianceMatrix, ComesFromDeviationsAndCorrelations) {
  CorrelationMatrix correlation(2);
  correlation.set(1, 2, -0.5);
  const CovarianceMatrix matrix = covarianceOf(std::array{2.0, 3.0}, correlation);
  EXPECT_EQ(matrix.at(1, 1), 4);
  EXPECT_EQ(matrix.at(2, 1), -3);
  EXPECT_EQ(matrix.at(1, 2), -3);
}

TEST(CovarianceMatrix, HasNoOtherIndices) {
  EXPECT_THROW(sample().at(0, 1), RuntimeError);
  EXPECT_THROW(sample().at(1, 3), RuntimeError);
  EXPECT_THROW(sample().at(3, 1), RuntimeError);
  EXPECT_THROW(sample().at(1, 0), RuntimeError);
}

}  // namespace
}  // namespace vk
