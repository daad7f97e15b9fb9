// What figures cost: to the finished picture, and to the files of vectors.

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

#include "gral/GralCls.h"
#include "gral/NoPrinter.h"
#include "gral/NominalScreen.h"
#include "gral/ObserverDevice.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/VectorDevice.h"

namespace vk {
namespace {

constexpr int kPoints = 32767;
constexpr int kSegments = 100000;
constexpr int kTexts = 1000;

QtGraphics& graphics() {
  static QtGraphics instance;
  return instance;
}

/// A page whose form at scale 2 has 1000 x 750 nominal pixels.
PrinterMetrics windowPage() {
  return {750 * kNominalTwipsPerPixel, 1000 * kNominalTwipsPerPixel, 600};
}

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

template <class Device>
void draw(Device& device, void (*figure)(GralCls&)) {
  NoPrinter printer(windowPage());
  NominalScreen screen;
  GralCls drawing(printer, screen);
  drawing.GralGrStr(device, "LANDSCAPE", 2);
  figure(drawing);
  drawing.GralGrEnd();
}

void onObserver(benchmark::State& state, void (*figure)(GralCls&)) {
  for (auto _ : state) {
    ObserverDevice observer;
    draw(observer, figure);
    if (observer.counts().refreshes == 0) state.SkipWithError("nothing was drawn");
  }
}

/// Window pixels of the image; the time includes the reduction to the picture that is shown.
void onImage(benchmark::State& state, void (*figure)(GralCls&)) {
  for (auto _ : state) {
    ImageDevice image(graphics().letters(), static_cast<int>(state.range(0)), 1);
    draw(image, figure);
    const Picture picture = image.Image();
    if (picture.width != 1000 || picture.height != 750) state.SkipWithError("the picture has another size");
  }
}

void toSvg(benchmark::State& state, void (*figure)(GralCls&)) {
  std::size_t size = 0;
  for (auto _ : state) {
    VectorDevice vectors(graphics().letters());
    draw(vectors, figure);
    size = vectors.svg().size();
  }
  state.counters["bytes"] = static_cast<double>(size);
}

void toPdf(benchmark::State& state, void (*figure)(GralCls&)) {
  std::size_t size = 0;
  for (auto _ : state) {
    VectorDevice vectors(graphics().letters());
    draw(vectors, figure);
    size = vectors.pdf().size();
  }
  state.counters["bytes"] = static_cast<double>(size);
}

#define FIGURE(name, figure)                                                               \
  BENCHMARK_CAPTURE(onObserver, name, figure)->Unit(benchmark::kMillisecond);              \
  BENCHMARK_CAPTURE(onImage, name, figure)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(toSvg, name, figure)->Unit(benchmark::kMillisecond);                   \
  BENCHMARK_CAPTURE(toPdf, name, figure)->Unit(benchmark::kMillisecond)

FIGURE(points_with_bars, drawPoints);
FIGURE(dashed_polyline, drawDashes);
FIGURE(texts, drawTexts);

}  // namespace
}  // namespace vk
