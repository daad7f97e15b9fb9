#include "data/foreign/Points.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vk {
namespace {

using ::testing::ElementsAre;

TEST(ForeignPoints, ComeBackFromTheirDataSet) {
  const PointColumns points{{1, 2, 3}, {4, 5, 6}, {0.1, 0.2, 0.3}, {0.4, 0.5, 0.6}};
  const PointColumns back = pointsOf(dataSetOf(points));
  EXPECT_EQ(back.x, points.x);
  EXPECT_EQ(back.y, points.y);
  EXPECT_EQ(back.dx, points.dx);
  EXPECT_EQ(back.dy, points.dy);
  const PointColumns plain = pointsOf(dataSetOf({{1, 2}, {4, 5}, {}, {}}));
  EXPECT_THAT(plain.dx, ElementsAre());
  EXPECT_THAT(plain.dy, ElementsAre(1, 1));
}

}  // namespace
}  // namespace vk
