// What contours and surfaces of a large grid cost: to the finished picture, and to a file of vectors.

#include <cmath>

#include "bench/FigureBench.h"

namespace vk {
namespace {

constexpr int kPoints = 200;
constexpr int kLevels = 10;

/// A ripple with heights between 0.5 and 3.5, its levels and colours.
struct Grid {
  Array2<float> z{kPoints, kPoints};
  Array<float> levels{kLevels};
  Array<Colour> colors{kLevels};
  Array2<float> hsb{kLevels + 1, 3};
  Array<float> surface{3};
  Grid() {
    for (int j = 1; j <= kPoints; ++j) {
      for (int i = 1; i <= kPoints; ++i) {
        const double x = (i - kPoints / 2) / 25.0, y = (j - kPoints / 2) / 25.0;
        z(i, j) =
            static_cast<float>(2 + 1.5 * std::cos(std::hypot(x, y) * 2) * std::exp(-0.1 * (x * x + y * y)));
      }
    }
    for (int k = 1; k <= kLevels; ++k) {
      levels[k] = 0.35F * static_cast<float>(k);
      colors[k] = Colour::fromBgr(0x10 * k);
    }
    for (int c = 1; c <= kLevels + 1; ++c) {
      hsb(c, 1) = 0.06F * static_cast<float>(c);
      hsb(c, 2) = 0.9F;
      hsb(c, 3) = 0.5F;
    }
    surface[1] = 0.6F;
    surface[2] = 0.5F;
    surface[3] = 0.5F;
  }
};

const Grid& grid() {
  static const Grid instance;
  return instance;
}

void drawContours(GralCls& drawing) {
  const Grid& g = grid();
  drawing.GralContour(2, drawing.XrLog - 2, 2, drawing.YtLog - 2, g.z, kPoints, kPoints, g.levels, g.colors,
                      kLevels);
  drawing.GralRefresh();
}

void drawSurface(GralCls& drawing, int levelColors) {
  const Grid& g = grid();
  drawing.Surf3D(drawing.XrLog / 2, 8, 75, 125, 16, 16, 4, g.z, kPoints, kPoints, true, true, g.surface,
                 g.levels, levelColors > 0 ? kLevels : 0, g.hsb, levelColors);
}

void drawShaded(GralCls& drawing) {
  drawSurface(drawing, 0);
}

void drawBanded(GralCls& drawing) {
  drawSurface(drawing, kLevels + 1);
}

/// As many quadrangles in as many greys.
void paintQuadrangles(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  for (int j = 0; j < kPoints; ++j) {
    for (int i = 0; i < kPoints; ++i) {
      const double x = 100 + 3.0 * i + 1.0 * j;
      const double y = 150 + 2.5 * j + 40 * std::sin(0.1 * i) * std::cos(0.1 * j);
      const int grey = 128 + static_cast<int>(100 * std::sin(0.1 * i + 0.07 * j));
      painter.setBrush(QColor(grey, grey, grey));
      const QPointF corners[] = {{x, y}, {x + 3, y + 1}, {x + 4, y + 3.5}, {x + 1, y + 2.5}};
      painter.drawConvexPolygon(corners, 4);
    }
  }
}

/// What opening, clearing and reducing a picture cost by themselves.
void drawNothing(GralCls& drawing) {
  drawing.GralRefresh();
}

FIGURE(nothing, drawNothing);
FIGURE(contours, drawContours);
FIGURE(shaded_surface, drawShaded);
PLAIN_FIGURE(shaded_surface, paintQuadrangles);
FIGURE(banded_surface, drawBanded);

}  // namespace
}  // namespace vk
