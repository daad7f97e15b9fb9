#pragma once

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include "gral/NoPrinter.h"
#include "gral/ObserverDevice.h"
#include "gral/Plotting.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/VectorDevice.h"

/// One figure on each kind of device: `FIGURE(name, figure)` for a function that draws it, `PLAIN_FIGURE(name, paint)`
/// for one that paints as much with the toolkit alone, on 1000 x 750.
namespace vk {

inline QtGraphics& graphics() {
  static QtGraphics instance;
  return instance;
}

/// A page whose form at scale 2 has 1000 x 750 nominal pixels.
inline PrinterMetrics windowPage() {
  return {Twips{750 * kNominalTwipsPerPixel}, Twips{1000 * kNominalTwipsPerPixel}, 600};
}

template <class Device>
void draw(Device& device, void (*figure)(GralCls&)) {
  NoPrinter printer(windowPage());
  GralCls drawing(printer);
  drawing.GralGrStr(device, "LANDSCAPE", 2);
  figure(drawing);
  drawing.GralGrEnd();
}

inline void onObserver(benchmark::State& state, void (*figure)(GralCls&)) {
  for (auto _ : state) {
    ObserverDevice observer;
    draw(observer, figure);
    if (observer.counts().refreshes == 0) state.SkipWithError("nothing was drawn");
  }
}

/// Window pixels of the image; the time includes the reduction to the picture that is shown.
inline void onImage(benchmark::State& state, void (*figure)(GralCls&)) {
  for (auto _ : state) {
    ImageDevice image(graphics().letters(), static_cast<int>(state.range(0)), 1);
    draw(image, figure);
    const Picture picture = image.Image();
    if (picture.width != 1000 || picture.height != 750) state.SkipWithError("the picture has another size");
  }
}

inline void toSvg(benchmark::State& state, void (*figure)(GralCls&)) {
  std::size_t size = 0;
  for (auto _ : state) {
    VectorDevice vectors(graphics().letters());
    draw(vectors, figure);
    size = vectors.svg().size();
  }
  state.counters["bytes"] = static_cast<double>(size);
}

inline void toPdf(benchmark::State& state, void (*figure)(GralCls&)) {
  std::size_t size = 0;
  for (auto _ : state) {
    VectorDevice vectors(graphics().letters());
    draw(vectors, figure);
    size = vectors.pdf().size();
  }
  state.counters["bytes"] = static_cast<double>(size);
}

inline void plainImage(benchmark::State& state, void (*paint)(QPainter&)) {
  for (auto _ : state) {
    QImage image(2000, 1500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(2, 2);
    paint(painter);
    painter.end();
    const QImage reduced = image.scaled(1000, 750, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (reduced.isNull()) state.SkipWithError("nothing was painted");
  }
}

inline void plainPdf(benchmark::State& state, void (*paint)(QPainter&)) {
  qsizetype size = 0;
  for (auto _ : state) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(96);
    QPainter painter(&writer);
    paint(painter);
    painter.end();
    size = buffer.size();
  }
  state.counters["bytes"] = static_cast<double>(size);
}

#define PLAIN_FIGURE(name, paint)                                            \
  BENCHMARK_CAPTURE(plainImage, name, paint)->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(plainPdf, name, paint)->Unit(benchmark::kMillisecond)

#define FIGURE(name, figure)                                                               \
  BENCHMARK_CAPTURE(onObserver, name, figure)->Unit(benchmark::kMillisecond);              \
  BENCHMARK_CAPTURE(onImage, name, figure)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(toSvg, name, figure)->Unit(benchmark::kMillisecond);                   \
  BENCHMARK_CAPTURE(toPdf, name, figure)->Unit(benchmark::kMillisecond)

}  // namespace vk
