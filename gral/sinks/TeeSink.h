#pragma once

#include "gral/DrawingSink.h"

namespace vk {

/// Draws the same on two sinks, the first one first, and tells of each primitive before.
class TeeSink : public DrawingSink {
 public:
  TeeSink(DrawingSink& first, DrawingSink& second) : sinks_{&first, &second} {}

  void clear(const SheetSize& size, Colour background) override {
    each([&](DrawingSink& sink) { sink.clear(size, background); });
  }
  void pen(const Pen& pen) override {
    each([&](DrawingSink& sink) { sink.pen(pen); });
  }
  void filling(const Filling& filling) override {
    each([&](DrawingSink& sink) { sink.filling(filling); });
  }
  void line(const TwipPoint& a, const TwipPoint& b) override {
    each([&](DrawingSink& sink) { sink.line(a, b); });
  }
  void box(const TwipPoint& a, const TwipPoint& b) override {
    each([&](DrawingSink& sink) { sink.box(a, b); });
  }
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override {
    each([&](DrawingSink& sink) { sink.filledBox(a, b, color); });
  }
  void circle(const TwipPoint& centre, Twips radius) override {
    each([&](DrawingSink& sink) { sink.circle(centre, radius); });
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
  void picture(const Picture& picture, const TwipPoint& corner) override {
    each([&](DrawingSink& sink) { sink.picture(picture, corner); });
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
