#pragma once

#include <optional>
#include <utility>

#include "gral/Device.h"
#include "gral/Drawing.h"
#include "gral/PlanePoint.h"

namespace vk {

/// A device that passes each primitive on to a drawing sink, and measures texts by given letter widths. What
/// lies far outside the drawing area is cut away first.
class SinkDevice : public Device {
 public:
  /// Sink and widths must live as long as the device.
  SinkDevice(const FormMetrics& form, DrawingSink& sink, LetterMetrics& letters);
  SinkDevice(const PrinterMetrics& printer, DrawingSink& sink, LetterMetrics& letters);

  void Line(double x1, double y1, double x2, double y2) override;
  void Box(double x1, double y1, double x2, double y2) override;
  void FilledBox(double x1, double y1, double x2, double y2, Color color) override;
  void Circle(double x, double y, double radius) override;
  double TextWidth(std::string_view text) override;
  double TextHeight(std::string_view text) override;
  void PolyBezier(std::span<const PixelPoint> points) override;
  void FloodFill(std::int32_t x, std::int32_t y, Color limit) override;

 protected:
  void drawPolyline(std::span<const PixelPoint> points) override;
  void drawFigure(std::span<const PixelPoint> points, bool fill, bool stroke) override;
  void drawText(const TextRun& run) override;
  void clipTo(const PixelRect* region) override;
  void cleared() override;
  void refreshed() override;

  DrawingSink& sink() { return sink_; }
  /// The next primitive announces pen and filling again.
  void forgetAnnounced();

 private:
  std::pair<PlanePoint, PlanePoint> drawnCorners(const PlanePoint& a, const PlanePoint& b) const;
  void announcePen();
  void announceFilling();

  DrawingSink& sink_;
  LetterMetrics& letters_;
  std::optional<Pen> pen_;
  std::optional<Filling> filling_;
};

}  // namespace vk
