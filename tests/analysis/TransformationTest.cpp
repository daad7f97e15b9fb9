#include "analysis/Transformation.h"

#include <gmock/gmock.h>

namespace vk {
namespace {

using testing::ElementsAre;

/// Three points (1, 4), (2, 5), (3, 6) with errors of y 0.1, 0.2, 0.3.
class TransformTest : public testing::Test {
 protected:
  TransformTest() {
    data.allocate(3, kFalse);
    for (int i = 1; i <= 3; ++i) {
      data.Xpnt[i] = i;
      data.Ypnt[i] = i + 3;
      data.ErrYpnt[i] = i / 10.0;
    }
  }
  TransformResult transformed(const std::string& x, const std::string& y, const std::string& dy) {
    return transform(data, {"t", "s", {x, y, dy}}, listener);
  }

  DataSet data;
  NoListener listener;
};

TEST_F(TransformTest, GivesNewDataAndLeavesTheOldOnes) {
  const TransformResult result = transformed("x*2", "x+y", "dy*x");
  EXPECT_TRUE(result.replaced());
  EXPECT_THAT(result.data.Xpnt.span(1, 3), ElementsAre(2, 4, 6));
  EXPECT_THAT(result.data.Ypnt.span(1, 3), ElementsAre(5, 7, 9));
  EXPECT_EQ(result.data.TitleX, "t");
  EXPECT_TRUE(result.failed.empty());
  EXPECT_THAT(data.Xpnt.span(1, 3), ElementsAre(1, 2, 3));
}

TEST_F(TransformTest, OfNoPointsGivesNone) {
  data.allocate(0, kFalse);
  const TransformResult result = transformed("x", "yd", "LOG(x)");
  EXPECT_TRUE(result.replaced());
  EXPECT_TRUE(result.failed.empty());
  EXPECT_EQ(result.data.NumPnt, 0);
  EXPECT_EQ(result.data.TitleY, "s");
}

TEST_F(TransformTest, NamesTheRowsWhoseFormulaFails) {
  const TransformResult result = transformed("x", "LOG(x-2)", "dy");
  EXPECT_THAT(result.data.Ypnt.span(1, 3), ElementsAre(-1, 0, 0));
  EXPECT_TRUE(result.replaced());
  ASSERT_EQ(result.failed.size(), 1U);
  EXPECT_EQ(result.failed[0].column, "y");
  EXPECT_THAT(result.failed[0].rows, ElementsAre(1, 2));
}

TEST(FailedRows, AreNamedByRangesUpToAsManyAsAreWanted) {
  const std::vector<FailedRows> failed{{"y", {1, 2, 4, 5, 6, 9}}, {"dy", {3}}};
  EXPECT_EQ(
      failedRowsText(failed),
      "formula di y NON calcolabile nelle righe 1, 2, 4-6, 9; formula di dy NON calcolabile nelle righe 3");
  EXPECT_EQ(
      failedRowsText(failed, 3),
      "formula di y NON calcolabile nelle righe 1, 2, 4-6, ...; formula di dy NON calcolabile nelle righe 3");
}

TEST_F(TransformTest, GivesTheOldDataBackWhereAFormulaIsBad) {
  const TransformResult result = transformed("x*2", "y+", "dy");
  EXPECT_FALSE(result.replaced());
  EXPECT_EQ(result.badColumn, " y");
  EXPECT_EQ(result.data.Xpnt, data.Xpnt);
  EXPECT_EQ(result.data.TitleX, data.TitleX);
}

}  // namespace
}  // namespace vk
