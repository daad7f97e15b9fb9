#include "numeric/BestPoints.h"

#include <list>
#include <memory>
#include <vector>

namespace vk {
namespace {

// One parameter and one residual, both named by the position.
struct LineOfPoints {
  BestPoints points;
  std::shared_ptr<std::list<double>> residuals = std::make_shared<std::list<double>>(1, 0.0);

  explicit LineOfPoints(double base) { points.begin(base, std::vector<double>{0}, {&residuals->back(), 1}); }
  LineOfPoints& tried(double position, double sum) {
    residuals->push_back(-position);
    points.consider(position, sum, std::vector<double>{position}, {&residuals->back(), 1});
    return *this;
  }
};

TEST(BestPoints, BeginWithTheBaseAndNoSecond) {
  const LineOfPoints search(5);
  EXPECT_EQ(search.points.best().sum, 5);
  EXPECT_FALSE(search.points.hasSecond());
}

TEST(BestPoints, HaveNoSecondWhenTheyBeginAgain) {
  LineOfPoints search = LineOfPoints(5).tried(1, 4);
  search.points.begin(4, std::vector<double>{1}, {&search.residuals->back(), 1});
  EXPECT_FALSE(search.points.hasSecond());
}

TEST(BestPoints, KeepTheResidualsOfTheirPointsAlone) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 4).tried(2, 3);
  EXPECT_TRUE(search.points.keeps(search.points.best().F.data()));
  EXPECT_TRUE(search.points.keeps(search.points.second().F.data()));
  EXPECT_FALSE(search.points.keeps(&search.residuals->front()));
}

TEST(BestPoints, TakeALowerFirstPointAsBestBeforeTheBase) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 4);
  EXPECT_EQ(search.points.best().position, 1);
  EXPECT_EQ(search.points.second().position, 0);
}

TEST(BestPoints, TakeAHigherFirstPointAsSecond) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 6);
  EXPECT_EQ(search.points.best().position, 0);
  EXPECT_EQ(search.points.second().position, 1);
}

TEST(BestPoints, IgnoreAnEqualFirstPointAndTakeTheNextInItsRole) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 5).tried(2, 7);
  EXPECT_EQ(search.points.best().position, 0);
  ASSERT_TRUE(search.points.hasSecond());
  EXPECT_EQ(search.points.second().position, 2);
}

TEST(BestPoints, KeepALaterPointBetweenTheTwo) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 9).tried(2, 7);
  EXPECT_EQ(search.points.best().position, 0);
  EXPECT_EQ(search.points.second().position, 2);
}

TEST(BestPoints, PushTheBestToSecondWhenABetterOneComes) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 9).tried(2, 3).tried(3, 1);
  EXPECT_EQ(search.points.best().position, 3);
  EXPECT_EQ(search.points.best().X[0], 3);
  EXPECT_EQ(search.points.best().F[0], -3);
  EXPECT_EQ(search.points.second().position, 2);
  EXPECT_EQ(search.points.second().sum, 3);
}

TEST(BestPoints, IgnoreAPointNotBelowTheSecond) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 7).tried(2, 8).tried(3, 7);
  EXPECT_EQ(search.points.second().position, 1);
}

TEST(BestPoints, IgnoreALaterPointEqualToTheBest) {
  const LineOfPoints search = LineOfPoints(5).tried(1, 7).tried(2, 5);
  EXPECT_EQ(search.points.best().position, 0);
  EXPECT_EQ(search.points.second().position, 1);
}

}  // namespace
}  // namespace vk
