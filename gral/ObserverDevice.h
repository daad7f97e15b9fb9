#pragma once

#include "gral/Device.h"

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
  const DrawingCounts& counts() const { return counts_; }

  void clear(const SheetSize&, Colour) override { ++counts_.clears; }
  void pen(const Pen&) override { ++counts_.pens; }
  void filling(const Filling&) override { ++counts_.fillings; }
  void line(const TwipPoint&, const TwipPoint&) override { ++counts_.lines; }
  void box(const TwipPoint&, const TwipPoint&) override { ++counts_.boxes; }
  void filledBox(const TwipPoint&, const TwipPoint&, Colour) override { ++counts_.boxes; }
  void circle(const TwipPoint&, Twips) override { ++counts_.circles; }
  void polyline(std::span<const PixelPoint> points) override { count(counts_.polylines, points); }
  void bezier(std::span<const PixelPoint> points) override { count(counts_.beziers, points); }
  void figure(std::span<const PixelPoint> points, bool, bool) override { count(counts_.figures, points); }
  void floodFill(const PixelPoint&, Colour) override { ++counts_.floodFills; }
  void text(const TextRun&) override { ++counts_.texts; }
  void clip(const PixelRect*) override { ++counts_.clips; }
  void picture(const Picture&, const TwipPoint&) override { ++counts_.pictures; }
  void refresh() override { ++counts_.refreshes; }

 private:
  void count(long& kind, std::span<const PixelPoint> points) {
    ++kind;
    counts_.points += static_cast<long>(points.size());
  }

  DrawingCounts counts_;
};

/// A form that draws nothing and counts what it is asked to draw: what the library alone costs.
class ObserverDevice : private CountingSink, private FixedLetterMetrics, public Device {
 public:
  explicit ObserverDevice(const FormMetrics& form = {}) : Device(form, *this, *this) {}

  using CountingSink::counts;
};

}  // namespace vk
