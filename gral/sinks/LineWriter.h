#pragma once

#include <string>
#include <vector>

#include "gral/DrawingSink.h"

namespace vk {

/// A drawing as text, one line for each primitive; `DisplayList::lines` tells how they read.
class LineWriter : public DrawingSink {
 public:
  std::vector<std::string> lines;

  void clear(const SheetSize& size, Colour background) override;
  void pen(const Pen& pen) override;
  void filling(const Filling& filling) override;
  void line(const TwipPoint& a, const TwipPoint& b) override;
  void box(const TwipPoint& a, const TwipPoint& b) override;
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override;
  void circle(const TwipPoint& centre, Twips radius) override;
  void polyline(std::span<const PixelPoint> points) override;
  void bezier(std::span<const PixelPoint> points) override;
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override;
  void floodFill(const PixelPoint& start, Colour limit) override;
  void text(const TextRun& run) override;
  void clip(const PixelRect* region) override;
  void picture(const Picture& picture, const TwipPoint& corner) override;
  void refresh() override;

 private:
  void add(std::string line) { lines.push_back(std::move(line)); }
  void addPoints(const std::string& name, std::span<const PixelPoint> points);
};

}  // namespace vk
