// Whole pictures of the same drawing on the image and in the files of vectors.

#include <QImage>
#include <QPainter>
#include <cmath>
#include <functional>
#include <numbers>

#include "DevicesFixture.h"
#include "Pixels.h"
#include "VectorReader.h"
#include "docs/gallery/Sheets.h"
#include "gral/sinks/FloodPictures.h"
#include "ui/qt/devices/PainterSink.h"

namespace vk {
namespace {

class WholePictures : public DevicesFixture {};

void expectNothingExtra(const Picture& a, const Picture& b, const std::string& what) {
  EXPECT_EQ(darkPixelsAlone(a, b), 0) << what;
}

TEST_F(WholePictures, PictureAtTwiceTheRatioIsTheSameOnlyFiner) {
  for (const Sheet& sheet : gallerySheets()) {
    ImageDevice coarse(letters(), 2, 1), fine(letters(), 4, 1);
    drawOn(coarse, sheet.draw, kGalleryScale, sheet.orientation);
    drawOn(fine, sheet.draw, kGalleryScale, sheet.orientation);
    const Picture a = coarse.Image(), b = fine.Image();
    ASSERT_EQ(a.width, b.width);
    ASSERT_EQ(a.height, b.height);
    expectNothingExtra(a, b, std::string(sheet.name) + ": in the coarse picture alone");
    expectNothingExtra(b, a, std::string(sheet.name) + ": in the fine picture alone");
    // The tip of a pen of few pixels is less round: nothing but slanted lines is somewhat heavier.
    EXPECT_NEAR(static_cast<double>(inkOf(a)) / static_cast<double>(inkOf(b)), 1, 0.08) << sheet.name;
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

TEST_F(WholePictures, WholeSheetsOfTheImageAreThoseOfThePainter) {
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

TEST_F(WholePictures, WholeSheetsInSvgHaveTheOutlinesOfPdf) {
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

TEST_F(WholePictures, WhatLiesFarOutsideLeavesTheSamePictureInImageSvgAndPdf) {
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
    EXPECT_GT(darkPixels(expected), 100) << feature.name;
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
