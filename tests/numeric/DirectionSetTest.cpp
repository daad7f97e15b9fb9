#include "numeric/DirectionSet.h"

#include <cmath>
#include <random>

#include "doubles/Tolerances.h"

namespace vk {
namespace {

void add(DirectionSet& set, const std::vector<double>& displacement, std::vector<double> change) {
  const double norm = std::sqrt(dot(change, change));
  for (double& value : change) value /= norm;
  set.next() = {displacement, change};
  set.add();
}

// The inverse times the matrix of dot products must be the unit matrix.
void expectInverse(const DirectionSet& set) {
  const auto n = static_cast<std::size_t>(set.size());
  for (int col = 0; col < set.size(); ++col) {
    std::vector<double> dots(n), product(n);
    for (int k = 0; k < set.size(); ++k)
      dots[static_cast<std::size_t>(k)] = dot(set[k].change, set[col].change);
    set.solve(dots, product);
    for (int row = 0; row < set.size(); ++row) {
      EXPECT_NEAR(product[static_cast<std::size_t>(row)], row == col ? 1 : 0, kManyRoundings)
          << row << ' ' << col;
    }
  }
}

DirectionSet four() {
  DirectionSet set(4, 5);
  add(set, {1, 0, 0, 0}, {1, 1, 0, 0, 0});
  add(set, {0, 2, 0, 0}, {0, 1, 2, 0, 1});
  add(set, {0, 0, 3, 0}, {1, 0, 1, 1, 0});
  add(set, {0, 0, 0, 4}, {3, -1, 0, 1, 2});
  return set;
}

TEST(DirectionSet, ProjectsOnEachDirectionInTheOrderOfTheResiduals) {
  constexpr int kResiduals = 100;
  std::mt19937 chance(1);
  std::uniform_real_distribution<double> any(-1, 1);
  const auto numbers = [&] {
    std::vector<double> result(kResiduals);
    for (double& value : result) value = any(chance);
    return result;
  };
  for (int count = 1; count <= 9; ++count) {
    DirectionSet set(count, kResiduals);
    for (int k = 0; k < count; ++k) add(set, std::vector<double>(static_cast<std::size_t>(count)), numbers());
    const std::vector<double> residuals = numbers();
    std::vector<double> dots(static_cast<std::size_t>(count));
    set.project(residuals, dots);
    for (int k = 0; k < count; ++k) {
      EXPECT_EQ(dots[static_cast<std::size_t>(k)], dot(set[k].change, residuals)) << count << ' ' << k;
    }
  }
}

TEST(DirectionSet, KeepsTheInverseWhenDirectionsAreAdded) {
  const DirectionSet set = four();
  EXPECT_EQ(set.size(), 4);
  expectInverse(set);
}

TEST(DirectionSet, StartsTheInverseWithOne) {
  DirectionSet set(1, 2);
  add(set, {1}, {3, 4});
  std::vector<double> product(1);
  set.solve(std::vector<double>{7}, product);
  EXPECT_EQ(product[0], 7);
}

TEST(DirectionSet, KeepsTheInverseWhenAnyDirectionIsTakenOut) {
  for (int r = 0; r < 4; ++r) {
    DirectionSet set = four();
    const double leaving = set[r].displacement[static_cast<std::size_t>(r)];
    set.remove(r);
    EXPECT_EQ(set.size(), 3);
    expectInverse(set);
    for (int k = 0; k < 3; ++k) {
      EXPECT_EQ(set[k].displacement[static_cast<std::size_t>(k < r ? k : k + 1)], k < r ? k + 1 : k + 2);
    }
    EXPECT_EQ(set.next().displacement[static_cast<std::size_t>(r)], leaving);
    add(set, {1, 1, 1, 1}, {0, 0, 1, -2, 1});
    expectInverse(set);
    EXPECT_EQ(set[3].displacement[0], 1);
  }
}

TEST(DirectionSet, SumsDisplacementsForStepAndCovariance) {
  DirectionSet set(2, 2);
  add(set, {1, 2}, {1, 0});
  add(set, {3, -4}, {0, 1});
  std::vector<double> step(2);
  set.combine(std::vector<double>{10, 1}, step);
  EXPECT_THAT(step, testing::ElementsAre(13, 16));
  EXPECT_EQ(set.covariance(0, 0), 10);
  EXPECT_EQ(set.covariance(1, 0), 2 - 12);
  EXPECT_EQ(set.covariance(1, 1), 20);
}

TEST(PackedInverse, LeavesElementsThatAreNotFiniteForADependentVector) {
  PackedInverse inverse(2);
  inverse.border(std::vector<double>{});
  inverse.border(std::vector<double>{1});
  EXPECT_FALSE(std::isfinite(inverse.at(1, 1)));
}

TEST(PackedInverse, IsSymmetric) {
  PackedInverse inverse(2);
  inverse.border(std::vector<double>{});
  inverse.border(std::vector<double>{0.6});
  EXPECT_DOUBLE_EQ(inverse.at(0, 0), 1 / 0.64);
  EXPECT_DOUBLE_EQ(inverse.at(0, 1), -0.6 / 0.64);
  EXPECT_EQ(inverse.at(0, 1), inverse.at(1, 0));
  EXPECT_DOUBLE_EQ(inverse.at(1, 1), 1 / 0.64);
}

}  // namespace
}  // namespace vk
