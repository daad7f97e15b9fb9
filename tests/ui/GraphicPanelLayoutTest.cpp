#include "ui/layout/GraphicPanelLayout.h"

#include "ui/FixedMeasure.h"

namespace vk {
namespace {

class GraphicPanelLayoutTest : public testing::Test {
 protected:
  GraphicPanelLayout layout = layoutGraphicPanel(FixedMeasure(90, 210));
};

TEST_F(GraphicPanelLayoutTest, APictureTakes80PercentOfItsFrame) {
  const Rect& frame = layout.FraGraScr;
  EXPECT_DOUBLE_EQ(layout.Image1.width, 0.8 * frame.width);
  EXPECT_DOUBLE_EQ(layout.Image1.height, 0.8 * frame.height);
  EXPECT_DOUBLE_EQ(layout.Image1.left, 0.1 * frame.width);
  EXPECT_DOUBLE_EQ(layout.Image1.top, 0.15 * frame.height);
}

TEST_F(GraphicPanelLayoutTest, EachScrollBarStandsBetweenItsLegendAndItsValue) {
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_GE(layout.LblFctLeg[i].width, 90 * 15) << "the widest legend fits";
    EXPECT_LT(layout.LblFctLeg[i].right(), layout.VScFct[i].left);
    EXPECT_LT(layout.VScFct[i].right(), layout.LblFctVal[i].left);
    EXPECT_LE(layout.LblFctVal[i].right(), layout.FraGraIng.width);
    if (i > 0) {
      EXPECT_LT(layout.VScFct[i - 1].bottom(), layout.VScFct[i].top);
    }
  }
  EXPECT_LE(layout.VScFct[3].bottom(), layout.FraGraIng.height);
}

TEST_F(GraphicPanelLayoutTest, TheButtonsStandSideBySideBelowTheScales) {
  EXPECT_GT(layout.CmdImpGra[0].top, layout.FraGraIng.bottom());
  EXPECT_EQ(layout.CmdImpGra[0].top, layout.CmdImpGra[1].top);
  EXPECT_LT(layout.CmdImpGra[0].right(), layout.CmdImpGra[1].left);
}

TEST_F(GraphicPanelLayoutTest, ThePanelFitsItsContentWithMarginsOfOneUnit) {
  EXPECT_EQ(layout.FraGraScr.left, 400);
  EXPECT_EQ(layout.FraGraScr.top, 400);
  EXPECT_EQ(layout.FraGraIng.top, 400);
  EXPECT_DOUBLE_EQ(layout.FraGra.width, layout.CmdImpGra[1].right() + 400);
  EXPECT_DOUBLE_EQ(layout.FraGra.height, layout.CmdImpGra[1].bottom() + 400);
  EXPECT_DOUBLE_EQ(layout.FraGraOri.bottom(), layout.CmdImpGra[1].bottom());
  EXPECT_GT(layout.FraGraOri.top, layout.FraGraScr.bottom());
}

TEST_F(GraphicPanelLayoutTest, ItFitsTheClientAreaOfTheFirstSize) {
  EXPECT_LE(layout.FraGra.width, 750 * 15);
  EXPECT_LE(layout.FraGra.height, 500 * 15);
}

}  // namespace
}  // namespace vk
