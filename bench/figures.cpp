// What figures cost: to the finished picture, and to the files of vectors.

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "bench/FigureBench.h"

namespace vk {
namespace {

constexpr int kPoints = 32767;
constexpr int kSegments = 100000;
constexpr int kTexts = 1000;

struct Points {
  Array<double> x{kPoints}, y{kPoints}, ex{kPoints}, ey{kPoints};
  Points() {
    for (int i = 1; i <= kPoints; ++i) {
      x[i] = 0.3 + 9.4 * i / kPoints;
      y[i] = 5 + 3 * std::sin(i * 0.37) + std::cos(i * 0.011);
      ex[i] = 0.3;
      ey[i] = 0.4;
    }
  }
};

void drawPoints(GralCls& drawing) {
  static const Points points;
  drawing.GralXMap(0, drawing.XrLog, 0, 10);
  drawing.GralYMap(0, drawing.YtLog, 0, 10);
  drawing.PlotData(points.x, points.ex, points.y, points.ey, kPoints, true, false, false);
}

void drawDashes(GralCls& drawing) {
  Array<double> x(kSegments + 1), y(kSegments + 1);
  for (int i = 1; i <= kSegments + 1; ++i) {
    const double a = i * 0.0031;
    x[i] = 12 + (2 + i * 7E-5) * std::cos(a);
    y[i] = 9.5 + (2 + i * 6E-5) * std::sin(a);
  }
  drawing.GralPen(1, 4);
  drawing.GralDraw(x, y, kSegments + 1);
}

void drawTexts(GralCls& drawing) {
  for (int i = 0; i < kTexts; ++i) {
    drawing.GralWPrint(1 + 2.4 * (i % 10), 1 + 0.17 * (i / 10), 1, static_cast<int>(30 * (i % 3)), 6 + i % 5,
                       "x_{max}^2 = 10^{-3} \\\\m");
  }
}

/// The capped bars and the mark of a point.
struct PlainPoint {
  QPointF at;
  std::array<QLineF, 6> bars;
};

PlainPoint plainPoint(int i) {
  const QPointF at(100 + 800.0 * i / kPoints, 375 + 230 * std::sin(i * 0.37) + 80 * std::cos(i * 0.011));
  const auto line = [at](double x1, double y1, double x2, double y2) {
    return QLineF(at + QPointF(x1, y1), at + QPointF(x2, y2));
  };
  return {at,
          {line(-25, 0, 25, 0), line(0, -30, 0, 30), line(-25, -3, -25, 3), line(25, -3, 25, 3),
           line(-3, -30, 3, -30), line(-3, 30, 3, 30)}};
}

void paintPoints(QPainter& painter) {
  painter.setPen(QPen(Qt::black, 1));
  for (int i = 1; i <= kPoints; ++i) painter.drawLines(plainPoint(i).bars.data(), 6);
  painter.setBrush(Qt::white);
  for (int i = 1; i <= kPoints; ++i) painter.drawEllipse(plainPoint(i).at, 4, 4);
}

/// The same as text: one path for the bars of a point, one circle for its mark.
void plainSvg(benchmark::State& state) {
  std::string svg;
  for (auto _ : state) {
    svg.clear();
    std::array<char, 256> piece{};
    const auto add = [&](const char* format, auto... values) {
      svg.append(piece.data(),
                 static_cast<std::size_t>(std::snprintf(piece.data(), piece.size(), format, values...)));
    };
    for (int i = 1; i <= kPoints; ++i) {
      svg += "<path d=\"";
      for (const QLineF& bar : plainPoint(i).bars) {
        add("M%.1f %.1fL%.1f %.1f", bar.x1(), bar.y1(), bar.x2(), bar.y2());
      }
      svg += "\"/>\n";
    }
    for (int i = 1; i <= kPoints; ++i) {
      const QPointF at = plainPoint(i).at;
      add("<circle cx=\"%.1f\" cy=\"%.1f\" r=\"4\"/>\n", at.x(), at.y());
    }
  }
  state.counters["bytes"] = static_cast<double>(svg.size());
}

FIGURE(points_with_bars, drawPoints);
PLAIN_FIGURE(points_with_bars, paintPoints);
BENCHMARK(plainSvg)->Name("plainSvg/points_with_bars")->Unit(benchmark::kMillisecond);
FIGURE(dashed_polyline, drawDashes);
FIGURE(texts, drawTexts);

}  // namespace
}  // namespace vk
