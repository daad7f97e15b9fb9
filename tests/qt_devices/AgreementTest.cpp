// The same drawing on the image and in the files of vectors.

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "DevicesFixture.h"
#include "VectorReader.h"
#include "docs/gallery/Sheets.h"
#include "gral/FloodPictures.h"
#include "ui/qt/devices/PainterSink.h"

namespace vk {
namespace {

constexpr double kHalfPixel = kNominalTwipsPerPixel / 2;

/// The box around everything that is not white, in twips.
QRectF inkBox(const Raster& raster, int ratio) {
  int left = raster.width(), top = raster.height(), right = 0, bottom = 0;
  for (int y = 0; y < raster.height(); ++y) {
    for (int x = 0; x < raster.width(); ++x) {
      if (raster.at(x, y) == 0xFFFFFFFF) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
    }
  }
  const double pixel = kNominalTwipsPerPixel / ratio;
  return {QPointF(left * pixel, top * pixel), QPointF(right * pixel, bottom * pixel)};
}

void expectSameBox(const QRectF& found, const QRectF& expected, const std::string& what,
                   double tolerance = kHalfPixel) {
  EXPECT_NEAR(found.left(), expected.left(), tolerance) << what;
  EXPECT_NEAR(found.top(), expected.top(), tolerance) << what;
  EXPECT_NEAR(found.right(), expected.right(), tolerance) << what;
  EXPECT_NEAR(found.bottom(), expected.bottom(), tolerance) << what;
}

Array<double> arrayOf(std::initializer_list<double> values) {
  Array<double> result(static_cast<int>(values.size()));
  int i = 0;
  for (const double value : values) result[++i] = value;
  return result;
}

struct Feature {
  const char* name;
  std::function<void(GralCls&)> draw;
};

const Feature kFeatures[] = {
    {"line", [](GralCls& g) { g.GralLine(3.333, 4.444, 17.77, 12.12); }},
    {"horizontal line", [](GralCls& g) { g.GralLine(3.333, 4.449, 17.77, 4.449); }},
    {"vertical line", [](GralCls& g) { g.GralLine(3.337, 4.449, 3.337, 11.1); }},
    {"wide line",
     [](GralCls& g) {
       g.GralPen(12, 1);
       g.GralLine(3.333, 4.444, 17.77, 12.12);
     }},
    {"box", [](GralCls& g) { g.GralBox(1.234, 5.678, 9.876, 15.43, 0); }},
    {"polyline",
     [](GralCls& g) {
       g.GralDraw(arrayOf({1.1, 5.23, 7.77}), arrayOf({2.22, 9.87, 3.3}), 3);
     }},
    {"dashed polyline",
     [](GralCls& g) {
       g.GralPen(1, 5);
       g.GralDraw(arrayOf({1.1, 5.23, 7.77}), arrayOf({2.22, 9.87, 3.3}), 3);
     }},
    {"smooth curve",
     [](GralCls& g) {
       g.GralCurve(arrayOf({1.1, 5.23, 9.77, 15}), arrayOf({6.22, 9.87, 7.3, 8}), 4);
     }},
    {"triangle",
     [](GralCls& g) {
       g.GralMakeMark(7.3, 1);
       g.GralMark(11.11, 7.77);
     }},
    {"square",
     [](GralCls& g) {
       g.GralMakeMark(7.3, 8);
       g.GralMark(11.11, 7.77);
     }},
    {"circle",
     [](GralCls& g) {
       g.GralMakeMark(7.3, 5);
       g.GralMark(11.11, 7.77);
     }},
    {"data",
     [](GralCls& g) {
       g.PlotData(arrayOf({3.21, 7.65}), arrayOf({0.6, 0.7}), arrayOf({4.32, 8.76}), arrayOf({0.8, 0.9}), 2,
                  true, false, false);
     }},
    {"axis", [](GralCls& g) { g.GralOaxis(2.34, 17.89, 3.33, 7, 3, true, false, ""); }},
};

class Agreement : public DevicesFixture {};

TEST_F(Agreement, ShapesStandInTheSamePlaceInImageSvgAndPdf) {
  for (const double scale : {1.0, 1.37}) {
    for (const Feature& feature : kFeatures) {
      VectorDevice vectors(letters());
      drawOn(vectors, feature.draw, scale);
      const QRectF svg = inkBox(readSvg(vectors.svg()));
      ASSERT_LT(svg.left(), svg.right()) << feature.name;
      expectSameBox(inkBox(readPdf(vectors.pdf())), svg, std::string(feature.name) + " in PDF");
      for (const int ratio : {1, 2, 3, 4}) {
        ImageDevice image(letters(), ratio, 1);
        drawOn(image, feature.draw, scale);
        // A pen of an odd number of pixels is centred on a pixel, which stands for the point at its corner.
        const double centre = ratio % 2 == 0 ? 0 : kHalfPixel / ratio;
        const QRectF box = inkBox(image.raster(), ratio).translated(-centre, -centre);
        // Pixels as coarse as the nominal ones are off by up to half of one at each end.
        expectSameBox(box, svg, std::string(feature.name) + " at ratio " + std::to_string(ratio),
                      ratio == 1 ? 2 * kHalfPixel : kHalfPixel);
      }
    }
  }
}

TEST_F(Agreement, ClipRegionsAreTheSame) {
  const auto draw = [](GralCls& g) {
    g.GralClip(3.21, 4.32, 15.43, 12.34);
    g.GralDev->FilledBox(0, 0, 100000, 100000, kBlack);
  };
  VectorDevice vectors(letters());
  drawOn(vectors, draw);
  ImageDevice image(letters(), 2, 1);
  drawOn(image, draw);
  const QRectF expected = inkBox(image.raster(), 2);
  ASSERT_EQ(readSvg(vectors.svg()).clips.size(), 1U);
  expectSameBox(readSvg(vectors.svg()).clips[0], expected, "SVG");
  ASSERT_FALSE(readPdf(vectors.pdf()).clips.empty());
  expectSameBox(readPdf(vectors.pdf()).clips.back(), expected, "PDF");
}

TEST_F(Agreement, LettersStandInTheSamePlaceInSvgAndPdf) {
  for (const Sheet& sheet : gallerySheets()) {
    VectorDevice vectors(letters());
    drawOn(vectors, sheet.draw, kGalleryScale, sheet.orientation);
    const auto svg = readSvg(vectors.svg()).letters, pdf = readPdf(vectors.pdf()).letters;
    ASSERT_EQ(svg.size(), pdf.size()) << sheet.name;
    ASSERT_GT(svg.size(), 10U);
    for (std::size_t i = 0; i < svg.size(); ++i) {
      ASSERT_NEAR(svg[i].base.x(), pdf[i].base.x(), kHalfPixel) << sheet.name << ", letter " << i;
      ASSERT_NEAR(svg[i].base.y(), pdf[i].base.y(), kHalfPixel) << sheet.name << ", letter " << i;
      ASSERT_NEAR(svg[i].size, pdf[i].size, 0.51) << sheet.name << ", letter " << i;
      ASSERT_NEAR(std::remainder(svg[i].angle - pdf[i].angle, 360), 0, 0.01)
          << sheet.name << ", letter " << i;
    }
  }
}

/// The box of an upright letter's outline, placed by its base line.
QRectF outlineBox(const VectorContent::Letter& letter, const QString& face, char16_t character) {
  QFont font(face);
  font.setPixelSize(1000);
  font.setHintingPreference(QFont::PreferNoHinting);
  const QRawFont raw = QRawFont::fromFont(font);
  const QPainterPath outline = raw.pathForGlyph(raw.glyphIndexesForString(QString(QChar(character))).front());
  const double scale = letter.size / 1000;
  const QRectF box = outline.boundingRect();
  QTransform place;
  place.translate(letter.base.x(), letter.base.y());
  place.rotate(-letter.angle);
  return place.mapRect(QRectF(box.topLeft() * scale, box.size() * scale));
}

TEST_F(Agreement, LettersOfTheImageAreWhereTheVectorsHaveThem) {
  for (const int angle : {0, 90, 180, -90}) {
    const auto draw = [angle](GralCls& g) { g.GralWPrint(8.123, 6.543, 0, angle, 36, "H"); };
    VectorDevice vectors(letters());
    drawOn(vectors, draw);
    const auto letter = readSvg(vectors.svg()).letters.at(0);
    const QRectF expected = outlineBox(letter, QString::fromStdString(letters().face(false, 'H')), u'H');
    for (const int ratio : {2, 4}) {
      ImageDevice image(letters(), ratio, 1);
      drawOn(image, draw);
      expectSameBox(inkBox(image.raster(), ratio), expected,
                    std::to_string(angle) + " degrees at ratio " + std::to_string(ratio));
    }
  }
}

/// How dark each nominal pixel is, 0 to 255.
std::vector<int> darkness(const Picture& picture) {
  std::vector<int> result;
  for (const std::uint32_t pixel : picture.pixels)
    result.push_back(255 - static_cast<int>(pixel >> 8 & 0xFF));
  return result;
}

/// True when some pixel next to this one, or itself, is at least half as dark.
bool darkNearby(const std::vector<int>& pixels, int width, int height, int x, int y, int least) {
  for (int j = std::max(0, y - 1); j <= std::min(height - 1, y + 1); ++j) {
    for (int i = std::max(0, x - 1); i <= std::min(width - 1, x + 1); ++i) {
      if (pixels[static_cast<std::size_t>(j) * static_cast<std::size_t>(width) +
                 static_cast<std::size_t>(i)] >= least) {
        return true;
      }
    }
  }
  return false;
}

void expectNothingExtra(const Picture& a, const Picture& b, const std::string& what) {
  constexpr int kClearlyInk = 200, kSomeInk = 60;
  const std::vector<int> inA = darkness(a), inB = darkness(b);
  int extra = 0;
  for (int y = 0; y < a.height; ++y) {
    for (int x = 0; x < a.width; ++x) {
      const auto at =
          static_cast<std::size_t>(y) * static_cast<std::size_t>(a.width) + static_cast<std::size_t>(x);
      if (inA[at] >= kClearlyInk && !darkNearby(inB, a.width, a.height, x, y, kSomeInk)) ++extra;
    }
  }
  EXPECT_EQ(extra, 0) << what;
}

TEST_F(Agreement, PictureAtTwiceTheRatioIsTheSameOnlyFiner) {
  for (const Sheet& sheet : gallerySheets()) {
    ImageDevice coarse(letters(), 2, 1), fine(letters(), 4, 1);
    drawOn(coarse, sheet.draw, kGalleryScale, sheet.orientation);
    drawOn(fine, sheet.draw, kGalleryScale, sheet.orientation);
    const Picture a = coarse.Image(), b = fine.Image();
    ASSERT_EQ(a.width, b.width);
    ASSERT_EQ(a.height, b.height);
    expectNothingExtra(a, b, std::string(sheet.name) + ": in the coarse picture alone");
    expectNothingExtra(b, a, std::string(sheet.name) + ": in the fine picture alone");
    long coarseInk = 0, fineInk = 0;
    for (const int value : darkness(a)) coarseInk += value;
    for (const int value : darkness(b)) fineInk += value;
    // The tip of a pen of few pixels is less round: nothing but slanted lines is somewhat heavier.
    EXPECT_NEAR(static_cast<double>(coarseInk) / static_cast<double>(fineInk), 1, 0.08) << sheet.name;
  }
}

/// Two pixels to a nominal one, so that a pixel beside another is half a nominal one away.
constexpr int kHalves = 2;

QImage whiteSheet(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

void preparePainter(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kHalves / kNominalTwipsPerPixel, kHalves / kNominalTwipsPerPixel);
}

Picture pictureOf(const QImage& image) {
  Picture picture;
  picture.width = image.width();
  picture.height = image.height();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) picture.pixels.push_back(image.pixel(x, y));
  }
  return picture;
}

TEST_F(Agreement, WholeSheetsOfTheImageAreThoseOfThePainter) {
  for (const Sheet& sheet : gallerySheets()) {
    ImageDevice image(letters(), 2 * kHalves, kHalves);
    drawOn(image, sheet.draw, kGalleryScale, sheet.orientation);
    const Picture expected = image.Image();
    VectorDevice vectors(letters());
    drawOn(vectors, sheet.draw, kGalleryScale, sheet.orientation);
    QImage painted = whiteSheet(expected.width, expected.height);
    {
      QPainter painter(&painted);
      preparePainter(painter);
      PainterSink sink(painter, letters(), kNominalTwipsPerPixel / VectorDevice::kPixelRatio,
                       kNominalTwipsPerPixel);
      replayAsVectors(vectors.list(), sink, letters(), {VectorDevice::kPixelRatio, 1});
    }
    const Picture found = pictureOf(painted);
    expectNothingExtra(found, expected, std::string(sheet.name) + ": from the painter alone");
    expectNothingExtra(expected, found, std::string(sheet.name) + ": in the image alone");
  }
}

/// The outlines of a file of vectors, all in black.
Picture outlines(const VectorContent& content, int width, int height) {
  QImage image = whiteSheet(width, height);
  QPainter painter(&image);
  preparePainter(painter);
  for (const VectorContent::Shape& shape : content.shapes) {
    painter.setPen(QPen(Qt::black, shape.penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(shape.points.data(), static_cast<int>(shape.points.size()));
  }
  painter.end();
  return pictureOf(image);
}

TEST_F(Agreement, WholeSheetsInSvgHaveTheOutlinesOfPdf) {
  int sheets = 0;
  for (const Sheet& sheet : gallerySheets()) {
    VectorDevice vectors(letters());
    drawOn(vectors, sheet.draw, kGalleryScale, sheet.orientation);
    // Hatches and filled areas are told in other ways by the two.
    const std::string svg = vectors.svg();
    if (svg.find("<pattern") != std::string::npos || vectors.list().needsPixels()) continue;
    ++sheets;
    const int width = static_cast<int>(vectors.ScaleWidth() / kNominalTwipsPerPixel) * kHalves;
    const int height = static_cast<int>(vectors.ScaleHeight() / kNominalTwipsPerPixel) * kHalves;
    const Picture a = outlines(readSvg(svg), width, height);
    const Picture b = outlines(readPdf(vectors.pdf()), width, height);
    expectNothingExtra(a, b, std::string(sheet.name) + ": in SVG alone");
    expectNothingExtra(b, a, std::string(sheet.name) + ": in PDF alone");
  }
  EXPECT_GE(sheets, 6);
}

Array<double> samples(int count, const std::function<double(double)>& f) {
  Array<double> result(count);
  for (int i = 1; i <= count; ++i) result[i] = f((i - 1.0) / (count - 1));
  return result;
}

const Feature kFarFeatures[] = {
    {"far line", [](GralCls& g) { g.GralLine(1, 1, 1E8, 1E7); }},
    {"line from far to far", [](GralCls& g) { g.GralLine(-1E12, -2E11 + 3, 1E12, 2E11 + 3); }},
    {"far dashed line",
     [](GralCls& g) {
       g.GralPen(3, 3);
       std::string text = g.GralPenTra;
       g.GralTraLine(1, 1, 1E8, 1E7, text);
     }},
    {"far wide line",
     [](GralCls& g) {
       g.GralPen(2000, 1);
       g.GralLine(-1E6, -3E6, 1E8, 3E8);
     }},
    {"far box",
     [](GralCls& g) {
       g.GralDev->FilledBox(0, 0, 1E5, 1E5, Colour::fromBgr(0xFF00));
       g.GralBox(3, 4, 1E12, -1E12, 0);
     }},
    {"pole",
     [](GralCls& g) {
       g.GralDraw(samples(200, [](double s) { return 20 * s; }),
                  samples(200, [](double s) { return 7 + 1 / std::pow(s - 0.503, 5); }), 200);
     }},
    {"exponential",
     [](GralCls& g) {
       g.GralDraw(samples(200, [](double s) { return 20 * s; }),
                  samples(200, [](double s) { return std::exp(30 * s) / 100; }), 200);
     }},
    {"far dashed points",
     [](GralCls& g) {
       g.GralPen(4, 2);
       g.GralDraw(arrayOf({1, 5, 9, 15}), arrayOf({2, 1E12, -1E12, 9}), 4);
     }},
    {"smooth curve with an outlier",
     [](GralCls& g) {
       g.GralCurve(arrayOf({1, 3, 5, 9, 15}), arrayOf({6, 9, 1E12, 7, 8}), 5);
     }},
    {"data with an outlier",
     [](GralCls& g) {
       g.PlotData(arrayOf({3, 7, 1E12}), arrayOf({0.6, 1E12, 1}), arrayOf({4, 8, 3}), arrayOf({1E12, 0.9, 1}),
                  3, true, false, false);
     }},
    {"large circle",
     [](GralCls& g) {
       g.GralMakeMark(1E9, 5);
       g.GralMark(8 - 1E8, 5);
     }},
    {"large square",
     [](GralCls& g) {
       g.GralMakeMark(1E7, 8);
       g.GralMark(9 + 1E6 * std::sqrt(std::numbers::pi) / 2, 4 + 1E5);
     }},
    {"far area",
     [](GralCls& g) {
       g.GralClip(-1E12, 3, 12, 1E12);
       g.GralLine(0, 0, 1E12, 1E12);
     }},
};

TEST_F(Agreement, WhatLiesFarOutsideLeavesTheSamePictureInImageSvgAndPdf) {
  constexpr double kHalfSize = 0.5;
  for (const Feature& feature : kFarFeatures) {
    ImageDevice image(letters(), 2 * kHalves, kHalves);
    drawOn(image, feature.draw, kHalfSize);
    const Picture expected = image.Image();
    VectorDevice vectors(letters());
    drawOn(vectors, feature.draw, kHalfSize);
    QImage painted = whiteSheet(expected.width, expected.height);
    {
      QPainter painter(&painted);
      preparePainter(painter);
      PainterSink sink(painter, letters(), kNominalTwipsPerPixel / VectorDevice::kPixelRatio,
                       kNominalTwipsPerPixel);
      vectors.list().replay(sink);
    }
    const Picture found = pictureOf(painted);
    const std::vector<int> ink = darkness(expected);
    EXPECT_GT(std::count_if(ink.begin(), ink.end(), [](int value) { return value > 200; }), 100)
        << feature.name;
    expectNothingExtra(found, expected, std::string(feature.name) + ": from the painter alone");
    expectNothingExtra(expected, found, std::string(feature.name) + ": in the image alone");
    const Picture svg = outlines(readSvg(vectors.svg()), expected.width, expected.height);
    const Picture pdf = outlines(readPdf(vectors.pdf()), expected.width, expected.height);
    expectNothingExtra(svg, pdf, std::string(feature.name) + ": in SVG alone");
    expectNothingExtra(pdf, svg, std::string(feature.name) + ": in PDF alone");
  }
}

}  // namespace
}  // namespace vk
