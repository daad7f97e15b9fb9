#include "gral/sinks/RasterSink.h"

#include "gral/RasterForm.h"

namespace vk {
namespace {

TEST(RasterForms, HavePixelsOfTheirRatio) {
  RasterForm one(1), three(3);
  EXPECT_EQ(one.raster().width(), 20);
  EXPECT_EQ(one.raster().height(), 10);
  EXPECT_EQ(three.raster().width(), 60);
  EXPECT_EQ(three.raster().height(), 30);
}

TEST(RasterForms, LinesStandOnTheirPixels) {
  RasterForm form(1);
  form.Line(15, 30, 45, 30);
  EXPECT_EQ(rowsOf(form.raster())[2], ".###................");
  form.Cls();
  form.Box(0, 0, 30, 15);
  EXPECT_EQ(rowsOf(form.raster())[0], "###.................");
  EXPECT_EQ(rowsOf(form.raster())[1], "###.................");
  EXPECT_EQ(rowsOf(form.raster())[2], "....................");
}

TEST(RasterForms, PensAreNominalPixelsWide) {
  RasterForm form(2);
  form.setDrawWidth(2);
  form.Line(75, 75, 150, 75);
  int rows = 0;
  for (const std::string& row : rowsOf(form.raster())) rows += row.find('#') != std::string::npos;
  EXPECT_EQ(rows, 4);
}

TEST(RasterForms, FilledBoxReachesBothCornersInAnyOrder) {
  RasterForm form(1);
  form.FilledBox(60, 45, 15, 15, Colour::fromBgr(0x0000FF));
  EXPECT_EQ(rowsOf(form.raster())[0], "....................");
  EXPECT_EQ(rowsOf(form.raster())[1], ".####...............");
  EXPECT_EQ(rowsOf(form.raster())[3], ".####...............");
  EXPECT_EQ(rowsOf(form.raster())[4], "....................");
  EXPECT_EQ(form.raster().at(1, 1), 0xFFFF0000U);
}

TEST(RasterForms, CircleIsOutlinedAndFilled) {
  RasterForm form(1);
  form.setFillStyle(kFillSolid);
  form.setFillColor(Colour::fromBgr(0x00FF00));
  form.Circle(75, 75, 60);
  EXPECT_EQ(form.raster().at(5, 5), 0xFF00FF00U);
  EXPECT_EQ(form.raster().at(1, 5), 0xFF000000U);
  EXPECT_EQ(form.raster().at(9, 5), 0xFF000000U);
  EXPECT_EQ(form.raster().at(5, 1), 0xFF000000U);
  EXPECT_EQ(form.raster().at(0, 5), 0xFFFFFFFFU);
  EXPECT_EQ(form.raster().at(2, 5), 0xFF00FF00U);
  form.Cls();
  form.setDrawStyle(kDrawTransparent);
  form.Circle(75, 75, 60);
  EXPECT_EQ(form.raster().at(1, 5), 0xFF00FF00U);
  EXPECT_EQ(form.raster().at(5, 5), 0xFF00FF00U);
}

TEST(RasterSinks, KeepNoRowsOfAHugeCircle) {
  BlockLetters letters;
  RasterSink sink(1, letters);
  sink.clear({300, 150}, kWhite);
  sink.filling({kBlack, kFillSolid});
  sink.circle({75, 75}, Twips(15E9));
  for (const std::string& row : rowsOf(sink.raster())) EXPECT_EQ(row, std::string(20, '#'));
}

TEST(RasterForms, TransparentFillingLeavesWhatIsUnderIt) {
  RasterForm form(1);
  form.Line(75, 75, 90, 75);
  form.Circle(75, 75, 60);
  EXPECT_EQ(form.raster().at(5, 5), 0xFF000000U);
  EXPECT_EQ(form.raster().at(5, 4), 0xFFFFFFFFU);
}

TEST(RasterForms, FiguresAreFilledAndOutlined) {
  RasterForm form(1);
  const PixelPoint points[] = {{1, 1}, {6, 1}, {6, 5}, {1, 5}};
  const auto draw = [&](int kind) {
    form.Cls();
    form.BeginPath();
    form.Polyline(points);
    form.EndPath();
    if (kind == 0) form.FillPath();
    if (kind == 1) form.StrokePath();
    if (kind == 2) form.StrokeAndFillPath();
    return rowsOf(form.raster());
  };
  form.setFillStyle(kFillSolid);
  EXPECT_EQ(draw(0)[1], ".#####..............");
  EXPECT_EQ(draw(0)[5], "....................");
  EXPECT_EQ(draw(1)[1], ".######.............");
  EXPECT_EQ(draw(1)[3], "......#.............");
  EXPECT_EQ(draw(2)[3], ".######.............");
  EXPECT_EQ(draw(2)[5], ".######.............");
}

TEST(RasterForms, DeviceLineStylesAreDashed) {
  RasterForm form(1);
  const auto styled = [&](int style) {
    form.Cls();
    form.setDrawStyle(style);
    form.Line(0, 15, 285, 15);
    return rowsOf(form.raster())[1];
  };
  EXPECT_EQ(styled(kDrawSolid), "####################");
  EXPECT_EQ(styled(kDrawInside), "####################");
  EXPECT_EQ(styled(kDrawTransparent), "....................");
  // a dash of 5 reaches from pixel 0 to pixel 5, the next begins at 8
  EXPECT_EQ(styled(kDrawDash), "######..######..####");
  EXPECT_EQ(styled(kDrawDot), "##..##..##..##..##..");
  EXPECT_EQ(styled(kDrawDashDot), "######..##..######..");
  EXPECT_EQ(styled(kDrawDashDotDot), "######..##..##..####");
}

TEST(RasterForms, DashesGoOnAroundCorners) {
  RasterForm form(1);
  form.setDrawStyle(kDrawDash);
  const PixelPoint corner[] = {{0, 0}, {3, 0}, {3, 9}};
  form.Polyline(corner);
  const auto rows = rowsOf(form.raster());
  EXPECT_EQ(rows[0], "####................");
  EXPECT_EQ(rows[2], "...#................");
  EXPECT_EQ(rows[3], "....................");
  EXPECT_EQ(rows[5], "...#................");
}

TEST(RasterForms, CurvePassesThroughItsEnds) {
  RasterForm form(1);
  const PixelPoint curve[] = {{0, 9}, {6, 0}, {12, 0}, {19, 9}};
  form.PolyBezier(curve);
  EXPECT_EQ(form.raster().at(0, 9), 0xFF000000U);
  EXPECT_EQ(form.raster().at(19, 9), 0xFF000000U);
  // at half its way the curve is at (9.1, 2.25)
  EXPECT_EQ(form.raster().at(9, 2), 0xFF000000U);
  for (int x = 0; x < 20; ++x) {
    bool found = false;
    for (int y = 0; y < 10; ++y) found = found || form.raster().at(x, y) == 0xFF000000U;
    EXPECT_TRUE(found) << x;
  }
}

TEST(RasterForms, CurveIsDrawnToEachOfItsInnerPoints) {
  for (const std::size_t drawing : {1U, 2U}) {
    RasterForm form(1);
    PixelPoint curve[] = {{0, 0}, {6, 0}, {12, 0}, {19, 0}};
    curve[drawing].y = 8;
    form.PolyBezier(curve);
    EXPECT_EQ(form.raster().at(9, 3), 0xFF000000U) << drawing;  // at half its way the curve is at (9.1, 3)
  }
}

TEST(RasterForms, LettersAreAskedAtTheirSizeAndAngle) {
  RasterForm form(2);
  form.setFontSize(12);
  form.setCurrentX(15);
  form.setCurrentY(15);
  form.Print("ab");
  FontRecord record;
  record.height = -12;
  record.escapement = 900;
  std::string_view("Symbol").copy(record.faceName.data(), 6);
  form.SelectObject(form.CreateFontIndirect(record));
  form.TextOut(4, 6, "g");
  EXPECT_EQ(form.asked, (std::vector<BlockLetters::Asked>{
                            {false, 'a', 32, 0}, {false, 'b', 32, 0}, {true, 'g', 24, 90}}));
}

TEST(RasterForms, LettersOfATextFollowOneAnother) {
  RasterForm form(1);
  form.setFontSize(3);
  form.setForeColor(Colour::fromBgr(0x0000FF));
  form.setCurrentX(15);
  form.setCurrentY(15);
  form.Print("a b");
  // 4 pixels high, 2 wide; the blank is 1 pixel wide, but has a block, too
  EXPECT_EQ(rowsOf(form.raster())[1], ".#####..............");
  EXPECT_EQ(rowsOf(form.raster())[3], ".#####..............");
  EXPECT_EQ(rowsOf(form.raster())[4], "....................");
  EXPECT_EQ(form.raster().at(1, 1), 0xFFFF0000U);
}

TEST(RasterForms, LettersOfARotatedTextFollowOneAnotherAlongItsLine) {
  RasterForm form(1);
  const auto writtenAt = [&](int angle) {
    FontRecord record;
    record.height = -4;
    record.escapement = angle * 10;
    form.SelectObject(form.CreateFontIndirect(record));
    form.Cls();
    form.TextOut(8, 5, "abc");
    return rowsOf(form.raster());
  };
  // Blocks of 2 x 3 pixels, 2 pixels apart: at 30 degrees 1.7 to the right and 1 up.
  const std::string none(20, '.');
  EXPECT_THAT(writtenAt(30),
              testing::ElementsAre(none, none, none, "...........##.......", "..........###.......",
                                   "........#####.......", "........####........", "........##..........",
                                   none, none));
  EXPECT_THAT(writtenAt(90),
              testing::ElementsAre(none, "........##..........", "........##..........",
                                   "........##..........", "........##..........", "........##..........",
                                   "........##..........", "........##..........", none, none));
}

TEST(RasterForms, TextOfSizeZeroIsNotSeen) {
  RasterForm form(1);
  form.setFontSize(0);
  form.Print("a");
  EXPECT_TRUE(form.asked.empty());
}

TEST(RasterForms, ClipRegionsArePixelsOfTheForm) {
  RasterForm form(2);
  form.SelectClipRgn(form.CreateRectRgn(4, 2, 6, 4));
  form.FilledBox(0, 0, 300, 150, kBlack);
  const auto rows = rowsOf(form.raster());
  EXPECT_EQ(rows[1].find('#'), std::string::npos);
  EXPECT_EQ(rows[2], "....##..................................");
  EXPECT_EQ(rows[4].find('#'), std::string::npos);
}

TEST(RasterForms, ClearingEndsNoClipRegionOfTheForm) {
  RasterForm form(1);
  const auto region = form.CreateRectRgn(0, 0, 2, 2);
  form.SelectClipRgn(region);
  form.Cls();
  form.FilledBox(0, 0, 300, 150, kBlack);
  EXPECT_EQ(rowsOf(form.raster())[1], "##..................");
  EXPECT_EQ(rowsOf(form.raster())[2], "....................");
}

TEST(RasterForms, RefreshIsPassedOn) {
  RasterForm form(1);
  form.Refresh();
  EXPECT_EQ(form.refreshes, 1);
}

TEST(RasterForms, PicturesKeepTheirNaturalSize) {
  BlockLetters letters;
  RasterSink sink(2, letters);
  sink.clear({300, 150}, kWhite);
  sink.picture({2, 1, 15, {0xFF000000, 0xFFFF0000}}, {15, 30});
  sink.picture({2, 1, 15, {0, 0xFF00FF00}}, {30, 30});  // the first pixel is missing
  EXPECT_EQ(sink.raster().at(2, 4), 0xFF000000U);
  EXPECT_EQ(sink.raster().at(3, 5), 0xFF000000U);
  EXPECT_EQ(sink.raster().at(4, 4), 0xFFFF0000U);
  EXPECT_EQ(sink.raster().at(6, 4), 0xFF00FF00U);
  EXPECT_EQ(sink.raster().at(8, 4), 0xFFFFFFFFU);
  EXPECT_EQ(sink.raster().at(2, 6), 0xFFFFFFFFU);
}

TEST(RasterSinks, TakeFinerPixelsOfOtherDevices) {
  BlockLetters letters;
  RasterSink sink(2, letters, 15);
  sink.clear({300, 150}, kWhite);
  sink.pen({});
  const PixelPoint line[] = {{30, 75}, {150, 75}};
  sink.polyline(line);
  EXPECT_EQ(sink.raster().at(4, 10), 0xFF000000U);
  EXPECT_EQ(sink.raster().at(20, 10), 0xFF000000U);
  EXPECT_EQ(sink.raster().at(22, 10), 0xFFFFFFFFU);
}

}  // namespace
}  // namespace vk
