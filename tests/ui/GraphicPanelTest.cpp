#include "ui/GraphicPanel.h"

#include "session/Session.h"

namespace vk {
namespace {

using testing::ElementsAre;

class GraphicPanelTest : public testing::Test {
 protected:
  void SetUp() override { panel.open(); }

  Session session;
  GraphicPanel panel{session.settings, session.figures};
};

TEST_F(GraphicPanelTest, StartsAtMagnificationOneAndHorizontalPaper) {
  for (int row = 0; row < 4; ++row) {
    EXPECT_EQ(panel.scrollValue(row), 10);
    EXPECT_EQ(panel.valueText(row), "1.0");
  }
  EXPECT_EQ(panel.paperOption(), 0);
}

TEST_F(GraphicPanelTest, AScrollBarSetsTheScaleAtOnce) {
  panel.scroll(1, 5);
  EXPECT_EQ(session.figures.GraphScale[1], 0.5F);
  // QUIRK: no zero before the point.
  EXPECT_EQ(panel.valueText(1), ".5");
  panel.scroll(1, 20);
  EXPECT_EQ(session.figures.GraphScale[1], 2.0F);
  EXPECT_EQ(panel.valueText(1), "2.0");
  EXPECT_EQ(session.figures.GraphScale[0], 1.0F);
}

TEST_F(GraphicPanelTest, AScrollBarStaysInItsRange) {
  panel.scroll(0, 4);
  EXPECT_EQ(panel.scrollValue(0), 5);
  panel.scroll(0, 21);
  EXPECT_EQ(panel.scrollValue(0), 20);
}

TEST_F(GraphicPanelTest, ThePictureStepsRoundFrom2To0) {
  std::vector<int> seen;
  for (int i = 0; i < 4; ++i) {
    panel.stepPicture();
    seen.push_back(session.settings.BackImage);
  }
  EXPECT_THAT(seen, ElementsAre(1, 2, 0, 1));
}

TEST_F(GraphicPanelTest, AccettaTakesWhatTheControlsShow) {
  panel.scroll(2, 7);
  panel.choosePaper(1);
  session.figures.GraphScale[2] = 9;
  panel.accept();
  EXPECT_EQ(session.figures.GraphScale[2], 0.7F);
  EXPECT_EQ(session.figures.Landscape, kFalse);
}

TEST_F(GraphicPanelTest, RinunciaPutsEverythingBack) {
  session.figures.GraphScale = {1.5F, 0.5F, 1, 2};
  session.settings.BackImage = 1;
  panel.open();
  for (int row = 0; row < 4; ++row) panel.scroll(row, 11);
  panel.stepPicture();
  panel.choosePaper(1);
  panel.cancel();
  EXPECT_THAT(session.figures.GraphScale, ElementsAre(1.5F, 0.5F, 1.0F, 2.0F));
  EXPECT_EQ(session.settings.BackImage, 1);
  EXPECT_EQ(session.figures.Landscape, kTrue);
}

TEST_F(GraphicPanelTest, OpeningShowsWhatTheSessionHolds) {
  session.figures.GraphScale = {0.5F, 1, 1, 2};
  session.figures.Landscape = kFalse;
  panel.open();
  EXPECT_EQ(panel.scrollValue(0), 5);
  EXPECT_EQ(panel.valueText(0), ".5");
  EXPECT_EQ(panel.valueText(3), "2.0");
  EXPECT_EQ(panel.paperOption(), 1);
}

}  // namespace
}  // namespace vk
