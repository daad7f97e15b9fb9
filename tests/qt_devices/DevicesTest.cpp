#include <QGuiApplication>
#include <QImage>
#include <cmath>
#include <numbers>

#include "DevicesFixture.h"
#include "VectorReader.h"
#include "base/RuntimeError.h"
#include "gral/FloodPictures.h"
#include "ui/qt/devices/PainterSink.h"
#include "ui/qt/devices/PrinterDevice.h"
#include "ui/qt/devices/ScreenDevice.h"

namespace vk {
namespace {

class Images : public DevicesFixture {};

TEST_F(Images, ShownRatioMustDivideThePixelRatio) {
  EXPECT_THROW(ImageDevice(letters(), 4, 3), RuntimeError);
  EXPECT_THROW(ImageDevice(letters(), 4, 0), RuntimeError);
  EXPECT_NO_THROW(ImageDevice(letters(), 6, 3));
}

TEST_F(Images, PngHasTheShownPixelsAndTheNaturalSize) {
  ImageDevice image(letters(), 4, 2);
  drawOn(image, [](GralCls& g) { g.GralBox(2, 2, 20, 15, 0); });
  QImage read;
  ASSERT_TRUE(read.loadFromData(QByteArray::fromStdString(image.png()), "PNG"));
  EXPECT_EQ(read.width(), image.ScaleWidth() / 15 * 2);
  EXPECT_EQ(read.height(), image.ScaleHeight() / 15 * 2);
  EXPECT_NEAR(read.dotsPerMeterX(), 192 / 0.0254, 1);
  EXPECT_EQ(read.pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(Images, PictureIsTheReducedRaster) {
  ImageDevice image(letters(), 4, 1);
  drawOn(image, [](GralCls& g) { g.GralDev->FilledBox(0, 0, 7.5, 15, kBlack); });
  const Picture picture = image.Image();
  EXPECT_EQ(picture.twipsPerPixel, 15);
  EXPECT_EQ(picture.width, image.raster().width() / 4);
  // columns 0, 1 and 2 of 4 are black
  EXPECT_EQ(picture.pixels[0], 0xFF404040U);
}

TEST_F(Images, ClippedFillingEndsExactlyAtTheRegion) {
  ImageDevice image(letters(), 4, 1);
  drawOn(image, [](GralCls& g) {
    g.GralClip(5, 5, 10, 10);
    g.GralDev->FilledBox(0, 0, 100000, 100000, kBlack);
    const int x1 = g.xUsr2Pixel(5), x2 = g.xUsr2Pixel(10);
    const int y1 = g.yUsr2Pixel(10), y2 = g.yUsr2Pixel(5);
    const Raster& raster = static_cast<ImageDevice*>(g.GralDev)->raster();
    EXPECT_EQ(raster.at(x1, y1), 0xFF000000U);
    EXPECT_EQ(raster.at(x2 - 1, y2 - 1), 0xFF000000U);
    EXPECT_EQ(raster.at(x1 - 1, y1), 0xFFFFFFFFU);
    EXPECT_EQ(raster.at(x2, y2 - 1), 0xFFFFFFFFU);
    EXPECT_EQ(raster.at(x1, y2), 0xFFFFFFFFU);
  });
}

class Vectors : public DevicesFixture {};

TEST_F(Vectors, PixelsAreTwips) {
  VectorDevice vectors(letters());
  drawOn(vectors, [](GralCls& g) {
    EXPECT_EQ(g.xScr2Pixel(100), 100);
    EXPECT_EQ(g.GralDev->TwipsPerPixelX(), 15);
  });
}

TEST_F(Vectors, SvgHasTheSizeOfTheForm) {
  VectorDevice vectors(letters());
  drawOn(
      vectors, [](GralCls&) {}, 2);
  EXPECT_NE(vectors.svg().find("viewBox=\"0 0 16365 11415\""), std::string::npos);
}

TEST_F(Vectors, PdfIsOnePage) {
  VectorDevice vectors(letters());
  drawOn(vectors, [](GralCls& g) { g.GralLine(1, 1, 5, 5); });
  const std::string pdf = vectors.pdf();
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("/Count 1"), std::string::npos);
}

TEST_F(Vectors, AreTheSameEachTimeTheyAreAsked) {
  VectorDevice vectors(letters());
  drawOn(vectors, [](GralCls& g) { g.GralLine(1, 1, 5, 5); });
  EXPECT_EQ(vectors.svg(), vectors.svg());
  EXPECT_EQ(readPdf(vectors.pdf()).shapes.size(), readPdf(vectors.pdf()).shapes.size());
}

/// A form with a filled ring: a box inside a box, the space between them red.
void drawFilledRing(GralCls& g) {
  g.GralBox(3, 12, 15, 4, 0);
  g.GralBox(6, 10, 12, 6, 0);
  g.GralFillStyle(kFillSolid);
  g.GralFillColor(Colour::fromBgr(0x0000FF));
  g.GralFill(4, 5, kBlack);
}

/// What its lines, 15 twips wide, leave of the ring, in square twips.
double ringArea() {
  const auto box = [](double width, double height, double margin) {
    constexpr double kPerCm = kTwipsPerInch / kCmPerInch;
    return (width * kPerCm + margin) * (height * kPerCm + margin);
  };
  return box(12, 8, -15) - box(6, 4, 15);
}

/// The boxes of the last path of an SVG document that is filled red: the area, after its rim.
std::vector<QRectF> lastRedBoxes(const std::string& svg) {
  const std::size_t at = svg.rfind("<path stroke=\"none\" fill=\"#ff0000\"");
  const std::string path = svg.substr(at, svg.find("/>", at) + 2 - at);
  std::vector<QRectF> boxes;
  for (const VectorContent::Shape& shape : readSvg("<svg>" + path + "</svg>").shapes) {
    boxes.emplace_back(shape.points[0], shape.points[2]);
  }
  return boxes;
}

TEST_F(Vectors, SvgHasAFilledAreaInItsPlace) {
  VectorDevice vectors(letters());
  drawOn(vectors, drawFilledRing, 2);
  QRectF around;
  double area = 0;
  for (const QRectF& box : lastRedBoxes(vectors.svg())) {
    around |= box;
    area += box.width() * box.height();
  }
  // Lines are 15 twips wide and the pixels of the area 3.75.
  constexpr double kPerCm = kTwipsPerInch / kCmPerInch, kHeight = 11415, kSharp = 4.5;
  EXPECT_NEAR(around.left(), 3 * kPerCm + 7.5, kSharp);
  EXPECT_NEAR(around.right(), 15 * kPerCm - 7.5, kSharp);
  EXPECT_NEAR(around.top(), kHeight - 12 * kPerCm + 7.5, kSharp);
  EXPECT_NEAR(around.bottom(), kHeight - 4 * kPerCm - 7.5, kSharp);
  EXPECT_NEAR(area / ringArea(), 1, 0.005);
}

TEST_F(Vectors, PdfHasAFilledAreaInItsPlace) {
  VectorDevice vectors(letters());
  drawOn(vectors, drawFilledRing, 2);
  const std::vector<VectorContent::Shape> shapes = readPdf(vectors.pdf()).shapes;
  const std::size_t boxes = lastRedBoxes(vectors.svg()).size();
  ASSERT_GT(shapes.size(), boxes);
  // the area comes last, after its rim and its lines
  double area = 0;
  for (std::size_t n = shapes.size() - boxes; n < shapes.size(); ++n) {
    const QRectF box = QRectF(shapes[n].points[0], shapes[n].points[2]).normalized();
    area += box.width() * box.height();
  }
  EXPECT_NEAR(area / ringArea(), 1, 0.005);
}

/// Pictures drawn by a painter, for what the files of vectors cannot tell.
class Painted : public DevicesFixture {
 protected:
  QImage paint(const std::function<void(PainterSink&)>& draw) {
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1 / 15.0, 1 / 15.0);
    {
      PainterSink sink(painter, letters(), 15, 15);
      draw(sink);
    }
    return image;
  }
};

TEST_F(Painted, PicturesHaveTheirNaturalSize) {
  const QImage image = paint([](PainterSink& sink) {
    sink.picture({2, 1, 150, {0xFF000000, 0xFFFF0000}}, 150, 300);
  });
  EXPECT_EQ(image.pixelColor(15, 25), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(25, 25), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(35, 25), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(25, 35), QColor(Qt::white));
}

TEST_F(Painted, PicturesMayHaveHoles) {
  const QImage image = paint([](PainterSink& sink) {
    sink.filledBox(0, 0, 3000, 1500, Colour::fromBgr(0xFF0000));
    sink.picture({2, 1, 150, {0, 0xFF00FF00}}, 150, 300);
  });
  EXPECT_EQ(image.pixelColor(15, 25), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(25, 25), QColor(Qt::green));
}

/// The most of green, which is in the ground alone, that shows between these nominal pixels when a drawing is
/// smoothed as viewers do it, with so many pixels to a nominal one.
int groundBetween(const VectorDevice& vectors, QtLetters& letters, const QRectF& part, double zoom) {
  QImage image(static_cast<int>(part.right() * zoom) + 9, static_cast<int>(part.bottom() * zoom) + 9,
               QImage::Format_RGB32);
  {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(zoom / 15, zoom / 15);
    PainterSink sink(painter, letters, 1, 15);
    replayAsVectors(vectors.list(), sink, letters, {15, 1});
  }
  int most = 0;
  for (int y = static_cast<int>(part.top() * zoom); y < part.bottom() * zoom; ++y) {
    for (int x = static_cast<int>(part.left() * zoom); x < part.right() * zoom; ++x) {
      most = std::max(most, image.pixelColor(x, y).green());
    }
  }
  return most;
}

/// Of 255: nobody sees it. Two smoothed edges side by side let 64 through.
constexpr int kFaint = 20;

TEST_F(Painted, AreasThatTouchShowNoGroundBetweenThem) {
  VectorDevice vectors(letters());
  vectors.setFillStyle(kFillSolid);
  // A fan of triangles around a point, in red and blue by turns.
  const PixelPoint middle{1503, 1507};
  constexpr double kStep = 2 * std::numbers::pi / 16;
  const auto rim = [&](int i) {
    return PixelPoint{static_cast<int>(middle.x + 1200 * std::cos(i * kStep)),
                      static_cast<int>(middle.y + 1200 * std::sin(i * kStep))};
  };
  for (int i = 0; i < 16; ++i) {
    vectors.setFillColor(Colour::fromBgr(i % 2 == 0 ? 0x0000FF : 0xFF0000));
    const PixelPoint triangle[] = {middle, rim(i), rim(i + 1)};
    vectors.BeginPath();
    vectors.Polyline(triangle);
    vectors.EndPath();
    vectors.FillPath();
  }
  for (const double zoom : {1.0, 1.37, 2.0, 4.3}) {
    EXPECT_LE(groundBetween(vectors, letters(), {50, 50, 100, 100}, zoom), kFaint) << zoom;
  }
}

TEST_F(Painted, FilledAreasShowNoGroundBesideTheirLines) {
  VectorDevice vectors(letters());
  drawOn(
      vectors,
      [](GralCls& g) {
        Array<double> x(61), y(61);
        for (int i = 1; i <= 61; ++i) {
          const double angle = (i - 1) * std::numbers::pi / 30, radius = 2 + 0.7 * std::cos(3 * angle);
          x[i] = 6 + radius * std::cos(angle);
          y[i] = 12 + radius * std::sin(angle);
        }
        g.GralDraw(x, y, 61);
        g.GralBox(5.4, 11.4, 6.6, 12.6, 0);
        g.GralFillStyle(kFillSolid);
        g.GralFillColor(Colour::fromBgr(0x0000FF));
        g.GralFill(6, 12, kBlack);
        g.GralFill(7.5, 12, kBlack);
        g.GralFillColor(Colour::fromBgr(0xFF0000));
        g.GralFill(1, 12, kBlack);
      },
      0.5);
  for (const double zoom : {1.0, 1.37, 2.0, 4.3}) {
    EXPECT_LE(groundBetween(vectors, letters(), {15, 40, 100, 115}, zoom), kFaint) << zoom;
  }
}

TEST_F(Painted, FilledAreaStandsWhereTheImageHasIt) {
  VectorDevice vectors(letters());
  drawOn(vectors, drawFilledRing, 2);
  ImageDevice plain(letters(), 1, 1);
  drawOn(plain, drawFilledRing, 2);
  QImage image(plain.raster().width(), plain.raster().height(), QImage::Format_RGB32);
  {
    QPainter painter(&image);
    painter.scale(1 / 15.0, 1 / 15.0);
    PainterSink sink(painter, letters(), 1, 15);
    replayAsVectors(vectors.list(), sink, letters(), {15, 1});
  }
  int red = 0, others = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const bool painted = image.pixelColor(x, y) == QColor(Qt::red);
      const bool expected = plain.raster().at(x, y) == 0xFFFF0000U;
      red += painted && expected;
      others += painted != expected;
    }
  }
  // They may differ in the pixels of the lines around.
  EXPECT_GT(red, 100000);
  EXPECT_LT(others, 2 * 2 * (454 + 302 + 227 + 151));
}

TEST_F(Painted, HatchesStayInsideTheFigureAndTheRegion) {
  for (int style = kFillHorizontal; style <= kFillDiagonalCross; ++style) {
    const QImage image = paint([style](PainterSink& sink) {
      const PixelRect region{0, 0, 60, 100};
      sink.clip(&region);
      sink.filling({kBlack, style});
      const PixelPoint box[] = {{20, 20}, {100, 20}, {100, 80}, {20, 80}};
      sink.figure(box, true, false);
    });
    int ink = 0, outside = 0;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 200; ++x) {
        const bool black = image.pixelColor(x, y) == QColor(Qt::black);
        const bool inside = x >= 20 && x < 60 && y >= 20 && y < 80;
        ink += black && inside;
        outside += black && !inside;
      }
    }
    EXPECT_EQ(outside, 0) << style;
    EXPECT_GT(ink, 40 * 60 / 10) << style;
    EXPECT_LT(ink, 40 * 60 / 2) << style;
  }
}

TEST_F(Painted, DeviceLineStylesHaveGaps) {
  for (const int style : {kDrawDash, kDrawDot, kDrawDashDot, kDrawDashDotDot}) {
    const QImage image = paint([style](PainterSink& sink) {
      sink.pen({kBlack, 2, style});
      sink.line(0, 750, 3000, 750);
    });
    int ink = 0;
    for (int x = 0; x < 200; ++x) ink += image.pixelColor(x, 50) == QColor(Qt::black);
    EXPECT_GT(ink, 60) << style;
    EXPECT_LT(ink, 190) << style;
  }
  const QImage nothing = paint([](PainterSink& sink) {
    sink.pen({kBlack, 2, kDrawTransparent});
    sink.line(0, 750, 3000, 750);
  });
  EXPECT_EQ(nothing.pixelColor(100, 50), QColor(Qt::white));
}

class Printed : public DevicesFixture {
 protected:
  static void drawOnPrinter(Device& printer, void (*draw)(GralCls&)) {
    NominalScreen screen;
    GralCls drawing(printer, screen);
    drawing.GralGrStr(printer, "LANDSCAPE", 1);
    draw(drawing);
    drawing.GralGrEnd();
  }
};

TEST_F(Printed, FigureBecomesVectorsOnTheTurnedPage) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  NominalScreen screen;
  GralCls drawing(printer, screen);
  drawing.GralGrStr(printer, "LANDSCAPE", 1);
  drawing.GralLine(0, 0, drawing.XrLog, drawing.YtLog);
  drawing.GralWPrint(5, 5, 0, 0, 12, "abc");
  EXPECT_TRUE(paper.document().empty());
  drawing.GralGrEnd();
  const std::string document = paper.document();
  EXPECT_NE(document.find("/Count 1"), std::string::npos);
  const VectorContent content = readPdf(document);
  ASSERT_EQ(content.shapes.size(), 1U);
  EXPECT_EQ(content.letters.size(), 3U);
  const QRectF box = inkBox(content);
  EXPECT_NEAR(box.width(), kA4LongSide, 20);
  EXPECT_NEAR(box.height(), kA4ShortSide, 20);
  EXPECT_EQ(printer.Orientation(), kPortrait);
}

TEST_F(Printed, MarginsAreASixthOfAnInch) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, printer.Width(), 0);
  printer.EndDoc();
  const VectorContent content = readPdf(paper.document());
  ASSERT_EQ(content.shapes.size(), 1U);
  EXPECT_NEAR(content.shapes[0].points[0].x(), 240, 1);
  EXPECT_NEAR(content.shapes[0].points[0].y(), 240, 20);
}

TEST_F(Printed, DocumentWithNothingOnItIsNotMade) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.EndDoc();
  EXPECT_TRUE(paper.document().empty());
}

TEST_F(Printed, NextDocumentBeginsAnew) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, 100, 100);
  printer.Line(0, 100, 100, 0);
  printer.EndDoc();
  EXPECT_EQ(readPdf(paper.document()).shapes.size(), 2U);
  printer.Line(0, 0, 100, 100);
  printer.EndDoc();
  EXPECT_EQ(readPdf(paper.document()).shapes.size(), 1U);
}

/// Paper that the user does not want, or that fails.
class NoPaper : public PdfPaper {
 public:
  bool fails = false;
  int ended = 0;
  QPainter* page() override {
    if (fails) throw RuntimeError(kPrinterError);
    return nullptr;
  }
  void EndDoc() override { ++ended; }
};

TEST_F(Printed, DocumentThatTheUserDoesNotWantIsDropped) {
  NoPaper paper;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, 100, 100);
  EXPECT_NO_THROW(printer.EndDoc());
  EXPECT_EQ(paper.ended, 1);
}

TEST_F(Printed, FailureOfThePrinterReachesTheCaller) {
  NoPaper paper;
  paper.fails = true;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, 100, 100);
  try {
    printer.EndDoc();
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 482);
  }
}

TEST_F(Printed, FilledAreasGoOntoThePage) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  drawOnPrinter(printer, drawFilledRing);
  const std::vector<VectorContent::Shape> shapes = readPdf(paper.document()).shapes;
  ASSERT_GT(shapes.size(), 2U + 4);
  // the area between the boxes comes last, as boxes above, beside and below the inner one
  const std::vector<QPointF>& side = shapes[shapes.size() - 2].points;
  const QRectF right = QRectF(side[0], side[2]).normalized();
  constexpr double kPerCm = kTwipsPerInch / kCmPerInch, kMargin = 240;
  EXPECT_NEAR(right.width(), 3 * kPerCm, 8);
  EXPECT_NEAR(right.height(), 4 * kPerCm, 8);
  EXPECT_NEAR(right.left(), kMargin + 12 * kPerCm, 8);
}

TEST_F(Printed, TheDrawingOfAWindowGoesOntoThePageAgainAndNotItsPixels) {
  ScreenDevice form(letters(), 1);
  form.setWidth(6000);
  form.setHeight(4500);
  form.Line(1500, 3000, 9000, 3000);
  form.setCurrentX(600);
  form.setCurrentY(600);
  form.Print("abc");
  const Picture picture = form.Image();
  form.Line(0, 0, 6000, 4500);  // comes too late for the picture

  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.PaintPicture(picture, 1000, 2000);
  printer.Line(100, 100, 200, 100);
  printer.EndDoc();
  EXPECT_EQ(paper.document().find("/Subtype /Image"), std::string::npos);
  const VectorContent content = readPdf(paper.document());
  EXPECT_EQ(content.letters.size(), 3U);
  constexpr double kMargin = 240;
  int lines = 0;
  for (const VectorContent::Shape& shape : content.shapes) {
    if (shape.penWidth == 0) continue;
    const bool ofTheForm = lines++ == 0;
    EXPECT_NEAR(shape.points.front().x(), kMargin + (ofTheForm ? 1000 + 1500 : 100), 8);
    EXPECT_NEAR(shape.points.front().y(), kMargin + (ofTheForm ? 2000 + 3000 : 100), 20);
    if (ofTheForm) {
      EXPECT_NEAR(shape.penWidth, 15, 1);
    }
  }
  EXPECT_EQ(lines, 2);
  // The line leaves the form, and is cut there.
  ASSERT_FALSE(content.clips.empty());
  EXPECT_NEAR(content.clips[0].left(), kMargin + 1000, 8);
  EXPECT_NEAR(content.clips[0].right(), kMargin + 1000 + 6000, 8);
}

TEST_F(Printed, PicturesGoOntoThePage) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  Picture picture{2, 1, 150, {0xFF000000, 0xFFFF0000}};
  printer.PaintPicture(picture, 100, 100);
  printer.EndDoc();
  EXPECT_NE(paper.document().find("/Subtype /Image"), std::string::npos);
}

}  // namespace
}  // namespace vk
