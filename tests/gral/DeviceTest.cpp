#include "gral/Device.h"

#include "base/RuntimeError.h"
#include "gral/ObserverDevice.h"

namespace vk {
namespace {

/// A device that keeps what reaches its sink.
class PlainDevice : private CountingSink, private FixedLetterMetrics, public Device {
 public:
  template <class Metrics>
  explicit PlainDevice(const Metrics& metrics) : Device(metrics, *this, *this) {}

  using CountingSink::counts;
  bool filled = false, stroked = false;
  std::vector<PixelPoint> points;
  std::vector<TextRun> texts;
  std::vector<PixelRect> clips;  ///< an empty one for no limit

 private:
  void figure(std::span<const PixelPoint> outline, bool fill, bool stroke) override {
    CountingSink::figure(outline, fill, stroke);
    filled = fill;
    stroked = stroke;
    points.assign(outline.begin(), outline.end());
  }
  void text(const TextRun& run) override { texts.push_back(run); }
  void clip(const PixelRect* region) override { clips.push_back(region ? *region : PixelRect{}); }
};

class FormDevice : public ::testing::Test {
 protected:
  PlainDevice form{FormMetrics{{120, 405}, 2}};
};

TEST_F(FormDevice, KeepsItsSettings) {
  form.setForeColor(Colour::fromBgr(1));
  form.setFillColor(Colour::fromBgr(2));
  form.setBackColor(Colour::fromBgr(3));
  form.setFillStyle(7);
  form.setDrawStyle(6);
  form.setFontName("Symbol");
  form.setFontSize(0);
  form.setFontTransparent(false);
  form.setCurrentX(4.5);
  form.setCurrentY(5.5);
  EXPECT_EQ(form.ForeColor(), Colour::fromBgr(1));
  EXPECT_EQ(form.FillColor(), Colour::fromBgr(2));
  EXPECT_EQ(form.BackColor(), Colour::fromBgr(3));
  EXPECT_EQ(form.FillStyle(), 7);
  EXPECT_EQ(form.DrawStyle(), 6);
  EXPECT_EQ(form.FontName(), "Symbol");
  EXPECT_EQ(form.FontSize(), 0);
  EXPECT_FALSE(form.FontTransparent());
  EXPECT_EQ(form.CurrentX(), 4.5);
  EXPECT_EQ(form.CurrentY(), 5.5);
}

TEST_F(FormDevice, RefusesSettingsOutOfTheirRange) {
  EXPECT_THROW(form.setFillStyle(8), RuntimeError);
  EXPECT_THROW(form.setFillStyle(-1), RuntimeError);
  EXPECT_THROW(form.setDrawStyle(7), RuntimeError);
  EXPECT_THROW(form.setDrawStyle(-1), RuntimeError);
  EXPECT_THROW(form.setFontSize(-0.5), RuntimeError);
  EXPECT_THROW(form.setScaleMode(2), RuntimeError);
  EXPECT_EQ(form.FillStyle(), 1);
  EXPECT_EQ(form.DrawStyle(), 0);
}

TEST_F(FormDevice, PenIsAWholeNumberOfPixelsAndAtLeastOne) {
  form.setDrawWidth(2.5);
  EXPECT_EQ(form.DrawWidth(), 2);
  form.setDrawWidth(0.2);
  EXPECT_EQ(form.DrawWidth(), 1);
  form.setDrawWidth(-3);
  EXPECT_EQ(form.DrawWidth(), 1);
  EXPECT_THROW(form.setDrawWidth(40000), RuntimeError);
}

TEST_F(FormDevice, TakesASizeOfWholeNominalPixels) {
  form.setWidth(120 + 1000);
  form.setHeight(405 + 500);
  EXPECT_EQ(form.ScaleWidth(), 67 * 15);
  EXPECT_EQ(form.ScaleHeight(), 33 * 15);
  EXPECT_EQ(form.Width(), 67 * 15 + 120);
  EXPECT_EQ(form.pixelWidth(), 134);
  form.setScaleMode(3);
  EXPECT_EQ(form.ScaleWidth(), 134);
  EXPECT_EQ(form.ScaleHeight(), 66);
  EXPECT_EQ(form.counts().clears, 2);
  form.setWidth(0);
  EXPECT_EQ(form.pixelWidth(), 2);
}

TEST_F(FormDevice, ScaleCanBePutBack) {
  form.setScaleWidth(7);
  form.setScaleHeight(8);
  form.setScaleLeft(9);
  form.setScaleTop(10);
  EXPECT_EQ(form.ScaleWidth(), 7);
  EXPECT_EQ(form.ScaleHeight(), 8);
  EXPECT_EQ(form.ScaleLeft(), 9);
  EXPECT_EQ(form.ScaleTop(), 10);
  EXPECT_EQ(form.area().width, 4800);
  form.setScaleMode(1);
  EXPECT_EQ(form.ScaleWidth(), 4800);
  EXPECT_EQ(form.ScaleTop(), 0);
}

TEST_F(FormDevice, LosesItsPictureWithANewBackground) {
  form.setBackColor(kWhite);
  EXPECT_EQ(form.counts().clears, 1);
  form.Cls();
  EXPECT_EQ(form.counts().clears, 2);
}

TEST_F(FormDevice, RefusesWhatPrintersDo) {
  EXPECT_THROW(form.Orientation(), RuntimeError);
  EXPECT_THROW(form.setOrientation(1), RuntimeError);
  EXPECT_THROW(form.Resolution(), RuntimeError);
  EXPECT_THROW(form.EndDoc(), RuntimeError);
  EXPECT_THROW(form.PaintPicture({}, 0, 0), RuntimeError);
}

TEST_F(FormDevice, PathCollectsPolylinesAndIsUsedUp) {
  const PixelPoint two[] = {{1, 2}, {3, 4}}, third[] = {{5, 6}};
  form.BeginPath();
  form.Polyline(two);
  form.Polyline(third);
  form.EndPath();
  EXPECT_EQ(form.counts().polylines, 0);
  form.StrokeAndFillPath();
  EXPECT_EQ(form.points, (std::vector<PixelPoint>{{1, 2}, {3, 4}, {5, 6}}));
  EXPECT_TRUE(form.filled && form.stroked);
  form.StrokePath();
  EXPECT_EQ(form.counts().figures, 1);
}

TEST_F(FormDevice, PathIsFilledOrStroked) {
  const PixelPoint two[] = {{1, 2}, {3, 4}};
  form.BeginPath();
  form.Polyline(two);
  form.EndPath();
  form.FillPath();
  EXPECT_TRUE(form.filled && !form.stroked);
  form.BeginPath();
  form.Polyline(two);
  form.EndPath();
  form.StrokePath();
  EXPECT_TRUE(!form.filled && form.stroked);
}

TEST_F(FormDevice, APathThatIsDrawnIsAtItsEnd) {
  const PixelPoint two[] = {{1, 2}, {3, 4}};
  form.BeginPath();
  form.Polyline(two);
  form.StrokePath();
  form.Polyline(two);
  EXPECT_EQ(form.counts().polylines, 1);
  form.StrokePath();
  EXPECT_EQ(form.counts().figures, 1);
}

TEST_F(FormDevice, PolylineOfOnePointDrawsNothing) {
  const PixelPoint one[] = {{1, 2}};
  form.Polyline(one);
  EXPECT_EQ(form.counts().polylines, 0);
}

TEST_F(FormDevice, RegionLimitsDrawingUntilItIsDeleted) {
  const auto first = form.CreateRectRgn(1, 2, 3, 4);
  const auto second = form.CreateRectRgn(5, 6, 7, 8);
  EXPECT_NE(first, 0);
  EXPECT_NE(first, second);
  form.SelectClipRgn(first);
  form.SelectClipRgn(second);
  form.DeleteObject(first);
  form.DeleteObject(second);
  EXPECT_EQ(form.clips, (std::vector<PixelRect>{{1, 2, 3, 4}, {5, 6, 7, 8}, {}}));
  EXPECT_THROW(form.DeleteObject(second), RuntimeError);
  EXPECT_THROW(form.SelectClipRgn(second), RuntimeError);
}

TEST_F(FormDevice, WritesInItsFontOrInTheSelectedRecord) {
  form.setFontName("Symbol");
  form.setFontSize(11);
  form.setCurrentX(100);
  form.setCurrentY(200);
  form.Print("a");
  FontRecord record;
  record.height = -16;
  record.escapement = 300;
  std::string_view("Arial").copy(record.faceName.data(), 5);
  const auto font = form.CreateFontIndirect(record);
  EXPECT_EQ(form.SelectObject(font), 0);
  form.Print("b");
  form.TextOut(10, 20, "c");
  EXPECT_EQ(form.SelectObject(0), font);
  form.Print("d");
  ASSERT_EQ(form.texts.size(), 4U);
  EXPECT_EQ(form.texts[0].fontName, "Symbol");
  EXPECT_EQ(form.texts[0].size.value(), 11);
  EXPECT_EQ(form.texts[0].place.x, 100);
  EXPECT_EQ(form.texts[1].fontName, "Arial");
  EXPECT_EQ(form.texts[1].size.value(), 12);
  EXPECT_EQ(form.texts[1].angle, 30);
  EXPECT_EQ(form.texts[2].place.x, 75);
  EXPECT_EQ(form.texts[2].place.y, 150);
  EXPECT_EQ(form.texts[3].angle, 0);
  EXPECT_EQ(form.CurrentX(), 100);
}

TEST_F(FormDevice, DeletedFontIsNoLongerSelected) {
  const auto font = form.CreateFontIndirect({});
  form.SelectObject(font);
  form.DeleteObject(font);
  EXPECT_EQ(form.SelectObject(0), 0);
  EXPECT_THROW(form.SelectObject(font), RuntimeError);
}

class PrinterDevice : public ::testing::Test {
 protected:
  PlainDevice printer{PrinterMetrics{Twips(8000), Twips(12000), 600}};
};

TEST_F(PrinterDevice, TurnsItsPage) {
  EXPECT_EQ(printer.Orientation(), kPortrait);
  EXPECT_EQ(printer.ScaleWidth(), 8000);
  EXPECT_EQ(printer.Height(), 12000);
  printer.setScaleMode(3);
  printer.setOrientation(kLandscape);
  EXPECT_EQ(printer.ScaleWidth(), 5000);
  EXPECT_EQ(printer.Width(), 12000);
  EXPECT_EQ(printer.ScaleMode(), 3);
  EXPECT_THROW(printer.setOrientation(3), RuntimeError);
}

TEST_F(PrinterDevice, HasPixelsOfItsOwn) {
  EXPECT_EQ(printer.TwipsPerPixelX(), 2.4);
  EXPECT_EQ(printer.TwipsPerPixelY(), 2.4);
  EXPECT_EQ(printer.Resolution(), 600);
  printer.TextOut(100, 200, "a");
  EXPECT_EQ(printer.texts[0].place.x, 240);
  EXPECT_EQ(printer.texts[0].place.y, 480);
}

TEST_F(PrinterDevice, RefusesWhatFormsDo) {
  EXPECT_THROW(printer.setCaption("x"), RuntimeError);
  EXPECT_THROW(printer.setAutoRedraw(true), RuntimeError);
  EXPECT_THROW(printer.setVisible(true), RuntimeError);
  EXPECT_THROW(printer.setLeft(1), RuntimeError);
  EXPECT_THROW(printer.setTop(1), RuntimeError);
  EXPECT_THROW(printer.setWidth(1), RuntimeError);
  EXPECT_THROW(printer.setHeight(1), RuntimeError);
  EXPECT_THROW(printer.Cls(), RuntimeError);
  EXPECT_THROW(printer.Refresh(), RuntimeError);
  EXPECT_THROW(printer.Hide(), RuntimeError);
  EXPECT_THROW(printer.Show(), RuntimeError);
  EXPECT_THROW(printer.Image(), RuntimeError);
  printer.setBackColor(Colour::fromBgr(3));
  EXPECT_EQ(printer.counts().clears, 0);
}

}  // namespace
}  // namespace vk
