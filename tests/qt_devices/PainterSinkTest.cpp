#include "ui/qt/devices/PainterSink.h"

#include <QImage>
#include <cmath>
#include <numbers>

#include "DevicesFixture.h"
#include "gral/sinks/FloodPictures.h"

namespace vk {
namespace {

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
    sink.picture({2, 1, 150, {0xFF000000, 0xFFFF0000}}, {150, 300});
  });
  EXPECT_EQ(image.pixelColor(15, 25), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(25, 25), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(35, 25), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(25, 35), QColor(Qt::white));
}

TEST_F(Painted, PicturesMayHaveHoles) {
  const QImage image = paint([](PainterSink& sink) {
    sink.filledBox({0, 0}, {3000, 1500}, Colour::fromBgr(0xFF0000));
    sink.picture({2, 1, 150, {0, 0xFF00FF00}}, {150, 300});
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
      sink.line({0, 750}, {3000, 750});
    });
    int ink = 0;
    for (int x = 0; x < 200; ++x) ink += image.pixelColor(x, 50) == QColor(Qt::black);
    EXPECT_GT(ink, 60) << style;
    EXPECT_LT(ink, 190) << style;
  }
  const QImage nothing = paint([](PainterSink& sink) {
    sink.pen({kBlack, 2, kDrawTransparent});
    sink.line({0, 750}, {3000, 750});
  });
  EXPECT_EQ(nothing.pixelColor(100, 50), QColor(Qt::white));
}

}  // namespace
}  // namespace vk
