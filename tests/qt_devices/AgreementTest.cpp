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
#include "Pixels.h"
#include "VectorReader.h"
#include "docs/gallery/Sheets.h"
#include "gral/sinks/FloodPictures.h"
#include "ui/qt/devices/PainterSink.h"

namespace vk {
namespace {

constexpr double kHalfPixel = kNominalTwipsPerPixel / 2;

void expectSameBox(const QRectF& found, const QRectF& expected, const std::string& what,
                   double tolerance = kHalfPixel) {
  EXPECT_NEAR(found.left(), expected.left(), tolerance) << what;
  EXPECT_NEAR(found.top(), expected.top(), tolerance) << what;
  EXPECT_NEAR(found.right(), expected.right(), tolerance) << what;
  EXPECT_NEAR(found.bottom(), expected.bottom(), tolerance) << what;
}

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

}  // namespace
}  // namespace vk
