#pragma once

#include <string>
#include <vector>

#include "gral/DrawingSink.h"

namespace vk {

/// A drawing as text, one line for each primitive; `DisplayList::lines` tells how they read.
class LineWriter : public DrawingSink {
 public:
  std::vector<std::string> lines;

  void clear(double width, double height, Colour background) override;
  void pen(const Pen& pen) override;
  void filling(const Filling& filling) override;
  void line(double x1, double y1, double x2, double y2) override;
  void box(double x1, double y1, double x2, double y2) override;
  void filledBox(double x1, double y1, double x2, double y2, Colour color) override;
  void circle(double x, double y, double radius) override;
  void polyline(std::span<const PixelPoint> points) override;
  void bezier(std::span<const PixelPoint> points) override;
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override;
  void floodFill(const PixelPoint& start, Colour limit) override;
  void text(const TextRun& run) override;
  void clip(const PixelRect* region) override;
  void picture(const Picture& picture, double x, double y) override;
  void refresh() override;

 private:
  void add(std::string line) { lines.push_back(std::move(line)); }
  void addPoints(const std::string& name, std::span<const PixelPoint> points);
};

}  // namespace vk
