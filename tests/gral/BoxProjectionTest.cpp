#include "gral/BoxProjection.h"

#include <cmath>

#include "doubles/Tolerances.h"

namespace vk {
namespace {

TEST(Boxes, AreSeenFromThetaAndPhi) {
  const double root3 = std::sqrt(3.0), root2 = std::sqrt(2.0);
  const BoxProjection box({8, 4, 30, 45, 4, 3, 2});
  EXPECT_NEAR(box.xEdge.x, 2, kSingles);
  EXPECT_NEAR(box.xEdge.y, 4 * root3 / 2 * root2 / 2, kSingles);
  EXPECT_NEAR(box.yEdge.x, 3 * root3 / 2, kSingles);
  EXPECT_NEAR(box.yEdge.y, 3 * root2 / 2 / 2, kSingles);
  EXPECT_EQ(box.zEdge.x, 0);
  EXPECT_NEAR(box.zEdge.y, root2, kSingles);
  EXPECT_NEAR(box.corner.x, 8 - 1 - 3 * root3 / 4, kSingles);
  EXPECT_NEAR(box.corner.y, 4 - root3 * root2 / 2 - 3 * root2 / 8, kSingles);
}

TEST(Boxes, HaveTheirFloorsCentreOnTheGivenPoint) {
  for (const double theta : {0.0, 20.0, 135.0}) {
    const BoxProjection box({3, -2, theta, 60, 5, 7, 1});
    const UsrPoint centre = box.corner + 0.5 * (box.xEdge + box.yEdge);
    EXPECT_NEAR(centre.x, 3, kManyRoundings);
    EXPECT_NEAR(centre.y, -2, kManyRoundings);
  }
}

}  // namespace
}  // namespace vk
