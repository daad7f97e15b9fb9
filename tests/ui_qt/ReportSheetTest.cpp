#include "ui/qt/ports/ReportSheet.h"

#include "doubles/Doubles.h"
#include "gral/Plotting.h"
#include "gral/sinks/RecorderDevice.h"

namespace vk {
namespace {

using testing::ElementsAre;

class ReportSheetTest : public testing::Test {
 protected:
  void print(int rows, int cols) {
    const FigureReport report{.text = CharGrid(rows, cols),
                              .draw = [&](GralCls& drawing, const PageArea& area) {
                                drawing.GralLine(area.left, area.bottom, area.right, area.top);
                                figure = area;
                                page = drawing.YtLog;
                                textEnds = drawing.yScr2Log(rows * printer.place.cellHeight);
                              }};
    printReport(report, {"Courier New", 10}, printer, figures);
  }

  RecordingPrinter printer;
  RecorderDevice figures{PrinterMetrics{Twips(11000), Twips(16000), 300}};
  PageArea figure;
  double page = 0, textEnds = 0;
};

TEST_F(ReportSheetTest, PutsTheFigureBelowTheText) {
  print(25, 60);
  EXPECT_EQ(printer.place.face, "Courier New");
  EXPECT_EQ(printer.place.points, 10);
  EXPECT_LT(figure.top, textEnds);
  EXPECT_GT(figure.bottom, 0);
  EXPECT_EQ(figures.documents(), 1);
  EXPECT_EQ(printer.orientation, kPortrait);
}

TEST_F(ReportSheetTest, MakesALargeTextSmallerAndLeavesRoomForTheFigure) {
  for (const auto& [rows, cols] : {std::pair{25, 200}, {150, 60}}) {
    print(rows, cols);
    EXPECT_LT(printer.place.points, 10);
    EXPECT_GE(printer.place.left, 0);
    EXPECT_LE(printer.place.left + cols * printer.place.cellWidth, 11000.001);
    EXPECT_LE(rows * printer.place.cellHeight, 0.6 * 16000 + 0.001);
    EXPECT_GE(figure.bottom, 0);
    EXPECT_GT(figure.top - figure.bottom, page / 4);
  }
}

TEST_F(ReportSheetTest, PutsTheOrientationBackThatWasThere) {
  printer.orientation = kLandscape;
  print(25, 60);
  EXPECT_THAT(printer.calls, ElementsAre("portrait", "grid", "end", "landscape"));
}

}  // namespace
}  // namespace vk
