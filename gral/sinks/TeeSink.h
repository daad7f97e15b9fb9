#pragma once

#include "gral/DrawingSink.h"

namespace vk {

/// Draws the same on two sinks, the first one first, and tells of each primitive before.
class TeeSink : public DrawingSink {
 public:
  TeeSink(DrawingSink& first, DrawingSink& second) : sinks_{&first, &second} {}

  void clear(double width, double height, Colour background) override {
    each([&](DrawingSink& sink) { sink.clear(width, height, background); });
  }
  void pen(const Pen& pen) override {
    each([&](DrawingSink& sink) { sink.pen(pen); });
  }
  void filling(const Filling& filling) override {
    each([&](DrawingSink& sink) { sink.filling(filling); });
  }
  void line(double x1, double y1, double x2, double y2) override {
    each([&](DrawingSink& sink) { sink.line(x1, y1, x2, y2); });
  }
  void box(double x1, double y1, double x2, double y2) override {
    each([&](DrawingSink& sink) { sink.box(x1, y1, x2, y2); });
  }
  void filledBox(double x1, double y1, double x2, double y2, Colour color) override {
    each([&](DrawingSink& sink) { sink.filledBox(x1, y1, x2, y2, color); });
  }
  void circle(double x, double y, double radius) override {
    each([&](DrawingSink& sink) { sink.circle(x, y, radius); });
  }
  void polyline(std::span<const PixelPoint> points) override {
    each([&](DrawingSink& sink) { sink.polyline(points); });
  }
  void bezier(std::span<const PixelPoint> points) override {
    each([&](DrawingSink& sink) { sink.bezier(points); });
  }
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override {
    each([&](DrawingSink& sink) { sink.figure(points, fill, stroke); });
  }
  void floodFill(const PixelPoint& start, Colour limit) override {
    each([&](DrawingSink& sink) { sink.floodFill(start, limit); });
  }
  void text(const TextRun& run) override {
    each([&](DrawingSink& sink) { sink.text(run); });
  }
  void clip(const PixelRect* region) override {
    each([&](DrawingSink& sink) { sink.clip(region); });
  }
  void picture(const Picture& picture, double x, double y) override {
    each([&](DrawingSink& sink) { sink.picture(picture, x, y); });
  }
  void refresh() override {
    each([](DrawingSink& sink) { sink.refresh(); });
  }

 protected:
  virtual void comes() {}

 private:
  template <class Call>
  void each(Call&& call) {
    comes();
    for (DrawingSink* sink : sinks_) call(*sink);
  }

  DrawingSink* sinks_[2];
};

}  // namespace vk
