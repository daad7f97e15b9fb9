#include "GralFixture.h"
#include "base/RuntimeError.h"
#include "doubles/Tolerances.h"
#include "gral/NoPrinter.h"

namespace vk {
namespace {

class Opening : public GralFixture {};

TEST_F(Opening, GivesEveryPublicFieldItsDefault) {
  drawing.GralCaption = "Grafico";
  drawing.GralMakeMark(7, 3);
  drawing.GralPen(5, 3);
  drawing.GralXMap(1, 2, 3, 4);
  drawing.GralUseTra = false;
  open(2);
  EXPECT_EQ(drawing.GralDev, &form);
  EXPECT_EQ(drawing.GralCaption, "Grafico");
  EXPECT_EQ(drawing.GralMarkDim, 1.5F);
  EXPECT_EQ(drawing.GralMarkTyp, 5);
  EXPECT_EQ(drawing.XlLog, 0);
  EXPECT_EQ(drawing.XrLog, 16);
  EXPECT_EQ(drawing.xScaleL2S, 567.1875F);
  EXPECT_EQ(drawing.YtLog, 8);
  EXPECT_EQ(drawing.YbLog, 0);
  EXPECT_EQ(drawing.yScaleL2S, -566.25F);
  EXPECT_EQ(drawing.XlUsr, 0);
  EXPECT_EQ(drawing.XrUsr, 16);
  EXPECT_EQ(drawing.xScaleU2L, 1);
  EXPECT_EQ(drawing.YtUsr, 8);
  EXPECT_EQ(drawing.YbUsr, 0);
  EXPECT_EQ(drawing.yScaleU2L, 1);
  EXPECT_TRUE(drawing.GralUseTra);
  EXPECT_EQ(drawing.GralPenTra, "");
  EXPECT_EQ(drawing.kGralPen, 0);
}

TEST_F(Opening, SetsCaptionWhiteBackgroundAndFont) {
  form.setCaption("prima");
  form.setForeColor(Colour::fromBgr(0x123456));
  form.setFontName("Courier New");
  form.setFontTransparent(false);
  drawing.GralCaption = "VOR_KEL: Grafico";
  form.setAutoRedraw(false);
  form.setVisible(false);
  drawing.GralGrStr(form, "PORTRAIT", 1);
  EXPECT_EQ(form.Caption(), "VOR_KEL: Grafico");
  EXPECT_EQ(form.BackColor(), kWhite);
  EXPECT_EQ(form.ForeColor(), kBlack);
  EXPECT_EQ(form.FontName(), "Arial");
  EXPECT_TRUE(form.FontTransparent());
  EXPECT_TRUE(form.AutoRedraw());
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(form.ScaleMode(), 1);
  EXPECT_EQ(form.DrawWidth(), 1);
}

TEST_F(Opening, MakesTheClientAreaHalfTheScaleTimesThePage) {
  constexpr double kHalfPixel = 7.5;
  for (const double scale : {0.5, 1.0, 1.3, 2.0}) {
    open(scale);
    EXPECT_NEAR(form.ScaleWidth(), scale / 2 * 16 * kTwipsPerCmExact, kHalfPixel) << scale;
    EXPECT_NEAR(form.ScaleHeight(), scale / 2 * 8 * kTwipsPerCmExact, kHalfPixel) << scale;
    EXPECT_EQ(form.Width(), form.ScaleWidth() + 120);
    EXPECT_EQ(form.Height(), form.ScaleHeight() + 405);
  }
}

TEST_F(Opening, AtScaleTwoShowsThePageAtNaturalSize) {
  EXPECT_EQ(form.ScaleWidth(), 9075);
  EXPECT_EQ(form.ScaleHeight(), 4530);
}

TEST_F(Opening, PlacesTheFormAt500Twips) {
  EXPECT_EQ(form.Left(), 500);
  EXPECT_EQ(form.Top(), 500);
  open(20);
  EXPECT_GT(form.Width(), 40000);  // wider than a screen
  EXPECT_EQ(form.Left(), 500);
  EXPECT_EQ(form.Top(), 500);
}

TEST_F(Opening, TakesLandscapeInAnyCase) {
  for (const char* name : {"LANDSCAPE", "landscape", "LandScape"}) {
    open(2, name);
    EXPECT_EQ(drawing.XrLog, 16) << name;
    EXPECT_EQ(drawing.YtLog, 8) << name;
  }
}

TEST_F(Opening, TakesAnyOtherTextAsPortrait) {
  for (const char* name : {"PORTRAIT", "x", "", " LANDSCAPE"}) {
    open(2, name);
    EXPECT_EQ(drawing.XrLog, 8) << name;
    EXPECT_EQ(drawing.YtLog, 16) << name;
  }
}

TEST_F(Opening, SortsTheSidesOfThePrinterWhateverItsOrientation) {
  printer.setOrientation(kLandscape);
  open(2, "PORTRAIT");
  EXPECT_GT(form.Height(), form.Width());
  EXPECT_EQ(drawing.YtLog, 16);
  printer.setOrientation(kPortrait);
  open(2, "LANDSCAPE");
  EXPECT_EQ(drawing.XrLog, 16);
  EXPECT_EQ(printer.Orientation(), kPortrait);
}

TEST_F(Opening, AsksThePrinterInItsOwnScaleMode) {
  printer.setScaleMode(3);
  open(2);
  EXPECT_EQ(drawing.XrLog, 16);
  EXPECT_EQ(printer.ScaleMode(), 3);
}

TEST_F(Opening, WithoutAPrinterTakesTheDocumentedPage) {
  NoPrinter none;
  GralCls onNone(none);
  onNone.GralGrStr(form, "LANDSCAPE", 2);
  EXPECT_EQ(onNone.XrLog, static_cast<float>(16360 / 1440.0 * 2.54));
  EXPECT_EQ(onNone.YtLog, static_cast<float>(11420 / 1440.0 * 2.54));
  EXPECT_NEAR(onNone.XrLog, 28.86, 0.005);
  EXPECT_NEAR(onNone.YtLog, 20.14, 0.005);
}

TEST_F(Opening, WithoutAPrinterADrawingOnItFailsToTheCaller) {
  NoPrinter none;
  GralCls onNone(none);
  onNone.GralGrStr(none, "LANDSCAPE", 1);
  try {
    onNone.GralLine(0, 0, 1, 1);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 482);
  }
}

TEST_F(Opening, ClearsTheFormAndShowsIt) {
  form.setVisible(false);
  drawing.GralLine(0, 0, 1, 1);
  drawing.GralGrStr(form, "LANDSCAPE", 2);
  const std::vector<std::string> lines = form.lines();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(lines[lines.size() - 2], "clear 9075,4530 tw FFFFFF");
  EXPECT_EQ(lines.back(), "refresh");
  EXPECT_TRUE(form.Visible());
}

TEST_F(Opening, NarrowsToSinglePrecision) {
  drawing.GralXMap(0, 1, 0, 3);
  EXPECT_EQ(drawing.xScaleU2L, static_cast<float>(1.0 / 3));
  EXPECT_EQ(drawing.XrUsr, static_cast<float>(16 / static_cast<double>(static_cast<float>(1.0 / 3))));
  EXPECT_EQ(drawing.xUsr2Log(3), 3 * static_cast<double>(static_cast<float>(1.0 / 3)));
  EXPECT_NE(drawing.xUsr2Log(3), 1);
}

TEST_F(Opening, OnAPrinterTakesItsPageAtFullScale) {
  openPrinter();
  EXPECT_EQ(drawing.GralDev, &printer);
  EXPECT_EQ(printer.Orientation(), kLandscape);
  EXPECT_NEAR(printer.ScaleWidth(), 16 * kTwipsPerCmExact, kThroughScales);
  EXPECT_EQ(drawing.XrLog, 16);
  drawing.GralWPrint(1, 1, 0, 0, 10, "a");
  EXPECT_EQ(printer.FontSize(), 10);
}

TEST_F(Opening, OnAFormScalesTextsByHalfTheScale) {
  open(1);
  drawing.GralWPrint(1, 1, 0, 0, 10, "a");
  EXPECT_EQ(form.FontSize(), 5);
}

TEST_F(Opening, AgainOnTheSameInstanceReleasesTheOldClipRegion) {
  drawing.GralClip(1, 1, 2, 2);
  form.forget();
  drawing.GralGrStr(form, "LANDSCAPE", 2);
  EXPECT_EQ(form.lines().front(), "clip off");
}

TEST(Drawings, StandSideBySide) {
  RecorderDevice printer{smallPage()}, first, second;
  GralCls a(printer), b(printer);
  a.GralGrStr(first, "LANDSCAPE", 2);
  b.GralGrStr(second, "PORTRAIT", 1);
  a.GralXMap(0, 1, 0, 10);
  EXPECT_EQ(b.xScaleU2L, 1);
  EXPECT_EQ(a.YtLog, 8);
  EXPECT_EQ(b.YtLog, 16);
}

class Ending : public GralFixture {};

TEST_F(Ending, OnAPrinterRestoresSixValuesAndEndsTheDocument) {
  printer.setOrientation(kPortrait);
  printer.setScaleMode(3);
  printer.setScaleWidth(111);
  printer.setScaleHeight(222);
  printer.setScaleTop(-3);
  printer.setScaleLeft(-4);
  openPrinter();
  EXPECT_EQ(printer.Orientation(), kLandscape);
  EXPECT_EQ(printer.ScaleMode(), 1);
  EXPECT_EQ(printer.ScaleTop(), 0);
  EXPECT_EQ(printer.documents(), 0);
  drawing.GralGrEnd();
  EXPECT_EQ(printer.documents(), 1);
  EXPECT_EQ(printer.Orientation(), kPortrait);
  EXPECT_EQ(printer.ScaleMode(), 3);
  EXPECT_EQ(printer.ScaleWidth(), 111);
  EXPECT_EQ(printer.ScaleHeight(), 222);
  EXPECT_EQ(printer.ScaleTop(), -3);
  EXPECT_EQ(printer.ScaleLeft(), -4);
}

TEST_F(Ending, DeletesTheClipRegionAndLeavesTheForm) {
  drawing.GralClip(1, 1, 2, 2);
  form.forget();
  drawing.GralGrEnd();
  EXPECT_EQ(form.lines(), std::vector<std::string>{"clip off"});
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(form.ScaleWidth(), 9075);
  form.forget();
  drawing.GralGrEnd();
  EXPECT_TRUE(form.lines().empty());
  EXPECT_EQ(printer.documents(), 0);
}

TEST_F(Ending, WithoutAClipRegionDoesNothingOnAForm) {
  drawing.GralGrEnd();
  EXPECT_TRUE(form.lines().empty());
}

class FormOperations : public GralFixture {};

TEST_F(FormOperations, ReachTheForm) {
  drawing.GralClear();
  drawing.GralRefresh();
  EXPECT_EQ(form.lines(), (std::vector<std::string>{"clear 9075,4530 tw FFFFFF", "refresh"}));
  drawing.GralHide();
  EXPECT_FALSE(form.Visible());
  drawing.GralShow();
  EXPECT_TRUE(form.Visible());
}

TEST_F(FormOperations, DoNothingOnAPrinter) {
  openPrinter();
  drawing.GralClear();
  drawing.GralRefresh();
  drawing.GralHide();
  drawing.GralShow();
  EXPECT_TRUE(printer.lines().empty());
}

}  // namespace
}  // namespace vk
