#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>

#include "fuzz/Input.h"
#include "gral/DrawingSink.h"

namespace vk {

/// A sink that holds a drawing to places and sizes that are numbers, and adds all up.
class FinitePlaces : public DrawingSink {
 public:
  /// Two drawings that differ have another sum, but for chance.
  std::uint64_t sum() const { return sum_; }

  void clear(const SheetSize& size, Colour) override { hold(1, {size.width, size.height}); }
  void pen(const Pen& pen) override {
    require(pen.width >= 1, "a pen that draws");
    hold(2, {numberOf(pen.color), double(pen.width), double(pen.style)});
  }
  void filling(const Filling& filling) override { hold(3, {numberOf(filling.color), double(filling.style)}); }
  void line(const TwipPoint& a, const TwipPoint& b) override { hold(4, {a.x, a.y, b.x, b.y}); }
  void box(const TwipPoint& a, const TwipPoint& b) override { hold(5, {a.x, a.y, b.x, b.y}); }
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override {
    hold(6, {a.x, a.y, b.x, b.y, numberOf(color)});
  }
  void circle(const TwipPoint& centre, Twips radius) override {
    hold(7, {centre.x, centre.y, radius.value()});
  }
  void polyline(std::span<const PixelPoint> points) override { hold(8, points); }
  void bezier(std::span<const PixelPoint> points) override { hold(9, points); }
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override {
    hold(10 + (fill ? 1U : 0U) + (stroke ? 2U : 0U), points);
  }
  void floodFill(const PixelPoint& start, Colour limit) override {
    hold(14, {double(start.x), double(start.y), numberOf(limit)});
  }
  void text(const TextRun& run) override {
    hold(std::hash<std::string>()(run.text), {run.place.x, run.place.y, run.size.value(), run.angle});
  }
  void clip(const PixelRect* region) override {
    if (region == nullptr) return hold(15, {});
    hold(16, {double(region->x1), double(region->y1), double(region->x2), double(region->y2)});
  }
  void picture(const Picture&, const TwipPoint& corner) override { hold(17, {corner.x, corner.y}); }
  void refresh() override { hold(18, {}); }

 private:
  static double numberOf(Colour color) { return color.rgb(); }
  void add(std::uint64_t value) { sum_ = (sum_ ^ value) * 0x9E3779B97F4A7C15U + (sum_ >> 29); }
  void hold(std::uint64_t kind, std::initializer_list<double> numbers) {
    add(kind);
    for (const double number : numbers) {
      require(std::isfinite(number), "finite places");
      add(std::bit_cast<std::uint64_t>(number));
    }
  }
  void hold(std::uint64_t kind, std::span<const PixelPoint> points) {
    add(kind);
    for (const PixelPoint& point : points) hold(points.size(), {double(point.x), double(point.y)});
  }

  std::uint64_t sum_ = 0;
};

}  // namespace vk
