#include "analysis/DataResiduals.h"

#include "analysis/FitFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;

struct Residual : FitCase {
  std::vector<double> F;
  double sum = -1;
  bool worked = false;

  using FitCase::FitCase;
  void compute(const std::vector<double>& X) {
    F.resize(static_cast<std::size_t>(points.NumPnt), 0);
    DataResiduals residuals(problem(), par, points.ErrYpnt.span(1, points.NumPnt));
    worked = residuals.ComputeResiduals(X, F, F, sum);
  }
};

TEST(DataResiduals, WeighTheDifferenceByTheError) {
  Residual r("b*x+c", "b,c");
  r.data({1, 2, 3}, {3, 3, 3}, {0.5, 2, -1});
  r.start({0, 0});
  r.compute({2, 1});
  EXPECT_THAT(r.F, ElementsAre(0, 1, -4));
  EXPECT_EQ(r.sum, 17);
  EXPECT_TRUE(r.worked);
}

TEST(DataResiduals, PutTheFreeParametersInTheirPlaces) {
  Residual r("a*x*x+b*x+c", "a,b,c");
  r.data({1}, {0}, {1});
  r.start({1, 7, 3}, "b");
  r.compute({10, 30});
  EXPECT_EQ(r.value(1), 10);
  EXPECT_EQ(r.value(2), 7);
  EXPECT_EQ(r.value(3), 30);
  EXPECT_EQ(r.F[0], 47);
}

TEST(DataResiduals, TellOfTheLastPointAlone) {
  // QUIRK: a logarithm that fails leaves its argument behind, and the point takes part with it.
  Residual middle("b*LOG(x)", "b");
  middle.data({1, -2, 1}, {0, 0, 0}, {1, 1, 1});
  middle.start({3});
  middle.compute({3});
  EXPECT_TRUE(middle.worked);
  EXPECT_EQ(middle.F[1], -6);
  Residual last("b*LOG(x)", "b");
  last.data({1, 1, -2}, {0, 0, 0}, {1, 1, 1});
  last.start({3});
  last.compute({3});
  EXPECT_FALSE(last.worked);
}

TEST(DataResiduals, KeepTheOldResidualWhereTheErrorIsZero) {
  Residual r("b*x", "b");
  r.data({1, 2, 3}, {0, 0, 0}, {1, 0, 1});
  r.start({1});
  r.F = {9, 5, 9};
  r.compute({1});
  EXPECT_THAT(r.F, ElementsAre(1, 5, 3));
  EXPECT_EQ(r.sum, 35);
  EXPECT_TRUE(r.worked);
}

TEST(DataResiduals, FailOnAZeroErrorAtTheLastPoint) {
  Residual r("b*x", "b");
  r.data({1, 2}, {0, 0}, {1, 0});
  r.start({1});
  r.compute({1});
  EXPECT_FALSE(r.worked);
}

TEST(DataResiduals, KeepTheOldResidualAndSumOnOverflow) {
  Residual r("b*x", "b");
  r.data({1, 1E300, 1E200, 2}, {0, 0, 0, 0}, {1, 1E-100, 1, 1});
  r.start({1});
  r.compute({1});
  // 1E300 / 1E-100 is not stored; the square of 1E200 is not added.
  EXPECT_THAT(r.F, ElementsAre(1, 0, 1E200, 2));
  EXPECT_EQ(r.sum, 5);
  EXPECT_TRUE(r.worked);
}

TEST(DataResiduals, FailWhenTheLastSquareOverflows) {
  Residual r("b*x", "b");
  r.data({1, 1E200}, {0, 0}, {1, 1});
  r.start({1});
  r.compute({1});
  EXPECT_FALSE(r.worked);
}

TEST(DataResiduals, AddUpManyPointsOneByOneWhereSomeFail) {
  constexpr int kMany = 5000;
  Residual r("b*x", "b");
  std::vector<double> x;
  std::vector<double> errors;
  double sum = 0;
  for (int i = 1; i <= kMany; ++i) {
    x.push_back(0.37 * i);
    errors.push_back(i % 700 == 0 && i < 3000 ? 0 : 3);
    const double residual = errors.back() == 0 ? 7 : x.back() / 3;
    sum = sum + residual * residual;
  }
  r.data(x, std::vector<double>(kMany, 0), errors);
  r.start({1});
  r.F.assign(kMany, 7);
  r.compute({1});
  EXPECT_TRUE(r.worked);
  EXPECT_EQ(r.sum, sum);
  EXPECT_EQ(r.F[699], 7);
  EXPECT_EQ(r.F[kMany - 1], x.back() / 3);
}

}  // namespace
}  // namespace vk
