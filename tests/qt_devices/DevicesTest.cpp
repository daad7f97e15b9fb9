#include <QGuiApplication>
#include <QImage>
#include <cmath>
#include <numbers>

#include "DevicesFixture.h"
#include "VectorReader.h"
#include "base/RuntimeError.h"
#include "gral/sinks/FloodPictures.h"
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

}  // namespace
}  // namespace vk
