#pragma once

#include <cmath>

#include "fuzz/Input.h"
#include "gral/DrawingSink.h"

namespace vk {

/// A sink that holds a drawing to places and sizes that are numbers.
class FinitePlaces : public DrawingSink {
 public:
  void clear(const SheetSize& size, Colour) override { hold({size.width, size.height}); }
  void pen(const Pen& pen) override { require(pen.width >= 1, "a pen that draws"); }
  void filling(const Filling&) override {}
  void line(const TwipPoint& a, const TwipPoint& b) override { hold({a.x, a.y, b.x, b.y}); }
  void box(const TwipPoint& a, const TwipPoint& b) override { line(a, b); }
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour) override { line(a, b); }
  void circle(const TwipPoint& centre, Twips radius) override { hold({centre.x, centre.y, radius.value()}); }
  void polyline(std::span<const PixelPoint>) override {}
  void bezier(std::span<const PixelPoint>) override {}
  void figure(std::span<const PixelPoint>, bool, bool) override {}
  void floodFill(const PixelPoint&, Colour) override {}
  void text(const TextRun& run) override { hold({run.place.x, run.place.y, run.size.value(), run.angle}); }
  void clip(const PixelRect*) override {}
  void picture(const Picture&, const TwipPoint& corner) override { hold({corner.x, corner.y}); }
  void refresh() override {}

 private:
  static void hold(std::initializer_list<double> numbers) {
    for (const double number : numbers) require(std::isfinite(number), "finite places");
  }
};

}  // namespace vk
