#include "gral/sinks/DisplayList.h"

#include "base/RuntimeError.h"
#include "gral/GralFixture.h"
#include "gral/NoPrinter.h"
#include "gral/ObserverDevice.h"
#include "gral/sinks/TeeSink.h"

namespace vk {
namespace {

/// One primitive of each kind.
void drawEverything(Device& device) {
  device.setForeColor(Colour::fromBgr(0x030201));
  device.setDrawStyle(kDrawDot);
  device.setDrawWidth(3);
  device.Line(1, 2, 3.25, 4.0001);
  device.Box(1, 2, 3, 4);
  device.FilledBox(1, 2, 3, 4, Colour::fromBgr(0xFF8040));
  device.setFillColor(kWhite);
  device.setFillStyle(kFillCross);
  device.Circle(10, 20, 1.0 / 3);
  const PixelPoint points[] = {{1, -2}, {3, 4}, {5, 6}, {7, 8}};
  device.Polyline(points);
  device.PolyBezier(points);
  for (int kind = 0; kind < 3; ++kind) {
    device.BeginPath();
    device.Polyline(points);
    device.EndPath();
    if (kind == 0) device.FillPath();
    if (kind == 1) device.StrokePath();
    if (kind == 2) device.StrokeAndFillPath();
  }
  device.setCurrentX(-0.0001);
  device.setCurrentY(6);
  device.setFontSize(10);
  device.Print("a'\\\x7F\xE8");
  const auto region = device.CreateRectRgn(1, 2, 3, 4);
  device.SelectClipRgn(region);
  device.DeleteObject(region);
}

const std::vector<std::string> kEverything{
    "pen 010203 width 3 dot",
    "line 1,2 3.25,4 tw",
    "box 1,2 3,4 tw",
    "filledbox 1,2 3,4 tw 4080FF",
    "filling FFFFFF cross",
    "circle 10,20 radius .333 tw",
    "polyline 1,-2 3,4 5,6 7,8 px",
    "bezier 1,-2 3,4 5,6 7,8 px",
    "fill 1,-2 3,4 5,6 7,8 px",
    "stroke 1,-2 3,4 5,6 7,8 px",
    "fill+stroke 1,-2 3,4 5,6 7,8 px",
    "text 0,6 tw Arial 10 pt 0 deg 'a'\\\\x7F\\xE8'",
    "clip 1,2 3,4 px",
    "clip off",
};

TEST(Recorder, WritesOneLineForEachPrimitive) {
  RecorderDevice form;
  drawEverything(form);
  EXPECT_EQ(form.lines(), kEverything);
  form.forget();
  form.Cls();
  form.Refresh();
  EXPECT_EQ(form.lines(), (std::vector<std::string>{"clear 4800,3600 tw FFFFFF", "refresh"}));
}

TEST(Recorder, AnnouncesPensAndFillingsOnlyWhenTheyChange) {
  RecorderDevice form;
  form.setForeColor(Colour::fromBgr(1));
  form.setForeColor(kBlack);
  form.Line(0, 0, 1, 1);
  form.setForeColor(Colour::fromBgr(1));
  form.setForeColor(kBlack);
  form.Line(1, 1, 2, 2);
  EXPECT_EQ(form.lines(),
            (std::vector<std::string>{"pen 000000 width 1 solid", "line 0,0 1,1 tw", "line 1,1 2,2 tw"}));
}

TEST(Recorder, KeepsPicturesAndDocumentsOfAPrinter) {
  RecorderDevice printer{PrinterMetrics{}};
  Picture picture;
  picture.width = 4;
  picture.height = 3;
  printer.PaintPicture(picture, 100, 50);
  EXPECT_EQ(printer.lines(), std::vector<std::string>{"picture 100,50 tw 4x3 of 15 tw"});
  EXPECT_EQ(printer.documents(), 0);
  printer.EndDoc();
  EXPECT_EQ(printer.documents(), 1);
  RecorderDevice form;
  EXPECT_THROW(form.EndDoc(), RuntimeError);
  EXPECT_THROW(form.PaintPicture(picture, 0, 0), RuntimeError);
}

TEST(DisplayList, DrawsItselfAgain) {
  RecorderDevice form;
  form.Cls();
  drawEverything(form);
  form.Refresh();
  DisplayList copy;
  form.list().replay(copy);
  EXPECT_EQ(copy.lines(), form.lines());
  EXPECT_EQ(copy.size(), form.list().size());
  DisplayList rest;
  form.list().replay(rest, copy.size() - 1);
  EXPECT_EQ(rest.lines(), std::vector<std::string>{"refresh"});
  copy.picture({2, 1, 7.5, {1, 2}}, {3, 4});
  DisplayList again;
  copy.replay(again);
  EXPECT_EQ(again.lines().back(), "picture 3,4 tw 2x1 of 7.5 tw");
  copy.reset();
  EXPECT_TRUE(copy.empty());
}

TEST(TeeSink, GivesEachPrimitiveToBothInTheirOrder) {
  RecorderDevice form;
  form.Cls();
  drawEverything(form);
  DisplayList list;
  form.list().replay(list);
  list.floodFill({5, 6}, kWhite);
  list.picture({2, 1, 7.5, {1, 2}}, {3, 4});
  list.refresh();
  DisplayList first, second;
  TeeSink both(first, second);
  list.replay(both);
  EXPECT_EQ(first.lines(), list.lines());
  EXPECT_EQ(second.lines(), list.lines());
}

TEST(Observer, CountsWhatItIsAskedToDraw) {
  ObserverDevice observer;
  observer.Cls();
  drawEverything(observer);
  observer.Refresh();
  const DrawingCounts& counts = observer.counts();
  EXPECT_EQ(counts.clears, 1);
  EXPECT_EQ(counts.pens, 1);
  EXPECT_EQ(counts.fillings, 1);
  EXPECT_EQ(counts.lines, 1);
  EXPECT_EQ(counts.boxes, 2);
  EXPECT_EQ(counts.circles, 1);
  EXPECT_EQ(counts.polylines, 1);
  EXPECT_EQ(counts.beziers, 1);
  EXPECT_EQ(counts.figures, 3);
  EXPECT_EQ(counts.points, 20);
  EXPECT_EQ(counts.texts, 1);
  EXPECT_EQ(counts.clips, 2);
  EXPECT_EQ(counts.refreshes, 1);
  EXPECT_EQ(counts.pictures, 0);
}

TEST(NoPrinterTest, RefusesEveryPrimitive) {
  NoPrinter none;
  const auto refused = [&](auto&& operation) {
    try {
      operation();
      return 0;
    } catch (const RuntimeError& error) {
      return error.number();
    }
  };
  const PixelPoint points[] = {{0, 0}, {1, 1}};
  EXPECT_EQ(refused([&] { none.Line(0, 0, 1, 1); }), 482);
  EXPECT_EQ(refused([&] { none.Box(0, 0, 1, 1); }), 482);
  EXPECT_EQ(refused([&] { none.FilledBox(0, 0, 1, 1, kBlack); }), 482);
  EXPECT_EQ(refused([&] { none.Circle(0, 0, 1); }), 482);
  EXPECT_EQ(refused([&] { none.TextWidth("a"); }), 482);
  EXPECT_EQ(refused([&] { none.TextHeight("a"); }), 482);
  EXPECT_EQ(refused([&] { none.Print("a"); }), 482);
  EXPECT_EQ(refused([&] { none.Polyline(points); }), 482);
  EXPECT_EQ(refused([&] { none.PolyBezier(points); }), 482);
  EXPECT_EQ(refused([&] { none.PaintPicture({}, 0, 0); }), 482);
  EXPECT_EQ(refused([&] { none.EndDoc(); }), 482);
  EXPECT_EQ(refused([&] { none.SelectClipRgn(none.CreateRectRgn(0, 0, 1, 1)); }), 482);
  EXPECT_EQ(refused([&] {
              none.BeginPath();
              none.Polyline(points);
              none.StrokePath();
            }),
            482);
}

TEST(FixedLetters, HaveTheWidthsOfTheirTable) {
  FixedLetterMetrics letters;
  EXPECT_EQ(letters.advance(false, 'i'), 0.3);
  EXPECT_EQ(letters.advance(false, ' '), 0.3);
  EXPECT_EQ(letters.advance(false, 'W'), 0.9);
  EXPECT_EQ(letters.advance(false, 'A'), 0.7);
  EXPECT_EQ(letters.advance(false, 'a'), 0.6);
  EXPECT_EQ(letters.advance(false, '7'), 0.6);
  EXPECT_EQ(letters.advance(true, 'W'), 0.6);
  EXPECT_EQ(letters.advance(true, '7'), 0.5);
  EXPECT_EQ(letters.lineHeight(false), 1.15);
}

}  // namespace
}  // namespace vk
