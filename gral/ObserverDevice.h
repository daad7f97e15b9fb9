#pragma once

#include "gral/SinkDevice.h"

namespace vk {

/// How often each kind of primitive was drawn.
struct DrawingCounts {
  long clears = 0, pens = 0, fillings = 0;
  long lines = 0, boxes = 0, circles = 0;
  long polylines = 0, beziers = 0, figures = 0;
  long points = 0;  ///< of polylines, curves and figures together
  long floodFills = 0;
  long texts = 0, pictures = 0, clips = 0, refreshes = 0;
};

/// A sink that only counts.
class CountingSink : public DrawingSink {
 public:
  DrawingCounts counts;

  void clear(double, double, Color) override { ++counts.clears; }
  void pen(const Pen&) override { ++counts.pens; }
  void filling(const Filling&) override { ++counts.fillings; }
  void line(double, double, double, double) override { ++counts.lines; }
  void box(double, double, double, double) override { ++counts.boxes; }
  void filledBox(double, double, double, double, Color) override { ++counts.boxes; }
  void circle(double, double, double) override { ++counts.circles; }
  void polyline(std::span<const PixelPoint> points) override { count(counts.polylines, points); }
  void bezier(std::span<const PixelPoint> points) override { count(counts.beziers, points); }
  void figure(std::span<const PixelPoint> points, bool, bool) override { count(counts.figures, points); }
  void floodFill(const PixelPoint&, Color) override { ++counts.floodFills; }
  void text(const TextRun&) override { ++counts.texts; }
  void clip(const PixelRect*) override { ++counts.clips; }
  void picture(const Picture&, double, double) override { ++counts.pictures; }
  void refresh() override { ++counts.refreshes; }

 private:
  void count(long& kind, std::span<const PixelPoint> points) {
    ++kind;
    counts.points += static_cast<long>(points.size());
  }
};

/// Gives the observer parts of its own that are made before it.
struct ObserverParts {
  CountingSink counter_;
  FixedLetterMetrics fixedLetters_;
};

/// A form that draws nothing and counts what it is asked to draw: what the library alone costs.
class ObserverDevice : private ObserverParts, public SinkDevice {
 public:
  explicit ObserverDevice(const FormMetrics& form = {}) : SinkDevice(form, counter_, fixedLetters_) {}

  const DrawingCounts& counts() const { return counter_.counts; }
};

}  // namespace vk
