#include "GralFixture.h"
#include "base/RuntimeError.h"

namespace vk {
namespace {

class Pens : public GralFixture {};

TEST_F(Pens, OnAFormAreAtLeastOnePixelWide) {
  const std::pair<double, int> widths[] = {{1, 1}, {5, 2}, {0, 1}, {2, 1}, {3, 1}, {4, 2}, {10, 5}, {9.9, 4}};
  for (const auto& [fdim, pixels] : widths) {
    drawing.GralPen(fdim, 1);
    EXPECT_EQ(form.DrawWidth(), pixels) << fdim;
  }
}

TEST_F(Pens, OnAPrinterHaveTheirTrueWidth) {
  openPrinter();
  drawing.GralPen(2.54, 1);
  EXPECT_EQ(printer.DrawWidth(), 6);
  drawing.GralPen(0, 1);
  EXPECT_EQ(printer.DrawWidth(), 1);
}

TEST_F(Pens, TypeSixIsSolidAgainAndLeavesThePattern) {
  drawing.GralPen(3, 2);
  const std::string before = drawing.GralPenTra;
  EXPECT_EQ(before, pattern({1, 75, 45}));
  drawing.GralPen(3, 6);
  EXPECT_EQ(drawing.kGralPen, 0);
  EXPECT_EQ(drawing.GralPenTra, before);
  EXPECT_EQ(form.DrawStyle(), 0);
}

TEST_F(Pens, PatternsOfWidthOne) {
  const std::pair<double, std::string> patterns[] = {{2, pattern({1, 75, 45})},
                                                     {3, pattern({1, 15, 45})},
                                                     {4, pattern({1, 75, 45, 15, 45})},
                                                     {5, pattern({1, 75, 45, 15, 45, 15, 45})}};
  for (const auto& [itra, expected] : patterns) {
    drawing.GralPen(1, itra);
    EXPECT_EQ(drawing.GralPenTra, expected) << itra;
    EXPECT_EQ(drawing.kGralPen, itra - 1);
    drawing.GralPen(1, itra + 5);
    EXPECT_EQ(drawing.GralPenTra, expected) << itra + 5;
  }
}

TEST_F(Pens, LongestElementFitsOneCharacter) {
  drawing.GralPen(8, 2);
  EXPECT_EQ(form.DrawWidth(), 4);
  EXPECT_EQ(drawing.GralPenTra, pattern({1, 255, 153}));
  drawing.GralPen(8, 3);
  EXPECT_EQ(drawing.GralPenTra, pattern({1, 51, 153}));
}

TEST_F(Pens, OnAPrinterHavePatternsInItsPixels) {
  openPrinter();
  drawing.GralPen(2.54, 5);
  // 6 pixels of 2.4 twips: u = 14.4, 3u = 43.2, 5u = 72
  EXPECT_EQ(drawing.GralPenTra, pattern({1, 72, 43, 14, 43, 14, 43}));
}

TEST_F(Pens, NoPatternElementIsBelowOneTwip) {
  RecorderDevice sharp{smallPage(5760)};
  GralCls onSharp(sharp);
  onSharp.GralGrStr(sharp, "LANDSCAPE", 1);
  onSharp.GralPen(0, 3);
  EXPECT_EQ(onSharp.GralPenTra, pattern({1, 1, 1}));
}

TEST_F(Pens, AreTheDevicesOwnWhenTheLibraryDrawsNoDashes) {
  drawing.GralUseTra = false;
  for (int itra = 1; itra <= 5; ++itra) {
    drawing.GralPen(1, itra);
    EXPECT_EQ(form.DrawStyle(), itra - 1);
    EXPECT_EQ(drawing.kGralPen, itra - 1);
  }
}

TEST_F(Pens, OfATypeBelowOneAreRefusedByTheDevice) {
  try {
    drawing.GralPen(1, 0);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 5);
  }
}

TEST_F(Pens, ColoursAndFillingsReachTheDevice) {
  drawing.GralColor(Colour::fromBgr(0x0000FF));
  drawing.GralFillColor(Colour::fromBgr(0x00FF00));
  drawing.GralFillStyle(4);
  EXPECT_EQ(form.ForeColor(), Colour::fromBgr(0x0000FF));
  EXPECT_EQ(form.FillColor(), Colour::fromBgr(0x00FF00));
  EXPECT_EQ(form.FillStyle(), 4);
}

TEST_F(Pens, FillStyleKeepsThreeBits) {
  drawing.GralFillStyle(13);
  EXPECT_EQ(form.FillStyle(), 5);
  drawing.GralFillStyle(-1);
  EXPECT_EQ(form.FillStyle(), 7);
}

class Lines : public GralFixture {};

TEST_F(Lines, AreSolidInUsrAndInScr) {
  drawing.GralPen(1, 2);
  drawing.GralLine(2, 8, 4, 4);
  drawing.GralLineScr(10, 20, 30.5, 40);
  EXPECT_EQ(drawn(), (std::vector<std::string>{"line 1134.375,0 2268.75,2265 tw", "line 10,20 30.5,40 tw"}));
}

TEST_F(Lines, HaveTheDevicesStyleWhenTheLibraryDrawsNoDashes) {
  drawing.GralUseTra = false;
  drawing.GralPen(5, 3);
  drawing.GralLine(2, 8, 4, 4);
  EXPECT_EQ(allDrawn(),
            (std::vector<std::string>{"pen 000000 width 2 dot", "line 1134.375,0 2268.75,2265 tw"}));
}

TEST_F(Lines, BoxErasesOnAFormAndIsOutlinedWithThePen) {
  drawing.GralColor(Colour::fromBgr(0x0000FF));
  drawing.GralBox(2, 8, 4, 4, 1);
  EXPECT_EQ(allDrawn(),
            (std::vector<std::string>{"filledbox 1134.375,0 2268.75,2265 tw FFFFFF",
                                      "pen FF0000 width 1 solid", "box 1134.375,0 2268.75,2265 tw"}));
}

TEST_F(Lines, BoxErasesNothingOnAPrinter) {
  openPrinter();
  drawing.GralBox(0, 8, 16, 0, 0);
  const std::vector<std::string> lines = drawnOn(printer);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].substr(0, 8), "box 0,0 ");
}

class Clipping : public GralFixture {};

TEST_F(Clipping, LimitsDrawingToARectangleOfPixels) {
  drawing.GralClip(4, 6, 2, 2);
  // 4 cm = 2268.75 twips = 151.25 pixels; 6 cm from the bottom = 1132.5 twips = 75.5 pixels from the top
  EXPECT_EQ(drawn(), std::vector<std::string>{"clip 76,76 151,226 px"});
}

TEST_F(Clipping, DeletesTheOldRegionBeforeANewOne) {
  drawing.GralClip(0, 8, 1, 7);
  form.forget();
  drawing.GralClip(0, 8, 2, 7);
  EXPECT_EQ(drawn(), (std::vector<std::string>{"clip off", "clip 0,0 76,38 px"}));
}

// QUIRK: clipping that ends keeps its first corner.
TEST_F(Clipping, WithEqualValuesReachesFromTheFirstCornerToTheEndAndShowsTheForm) {
  form.setVisible(false);
  drawing.GralClip(4, 6, 4, 2);
  EXPECT_EQ(drawn(), std::vector<std::string>{"clip 151,76 605,302 px"});
  EXPECT_TRUE(form.Visible());
  drawing.GralClip(4, 6, 8, 6);
  EXPECT_EQ(drawn(), (std::vector<std::string>{"clip off", "clip 151,76 605,302 px"}));
}

TEST_F(Clipping, DoesNotShowAFormOtherwise) {
  form.setVisible(false);
  drawing.GralClip(4, 6, 2, 2);
  EXPECT_FALSE(form.Visible());
}

TEST_F(Clipping, WithEqualValuesWorksOnAPrinter) {
  openPrinter();
  drawing.GralClip(0, 8, 0, 8);
  const std::vector<std::string> lines = drawnOn(printer);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0], "clip 0,0 3780,1890 px");
}

}  // namespace
}  // namespace vk
