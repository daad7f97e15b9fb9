#pragma once

#include "gral/Device.h"

namespace vk {

/// The printer of a system that has none: it tells the size of a page, which screen drawings need, and
/// refuses to draw with run-time error 482.
class NoPrinter : public Device {
 public:
  /// An A4 page, or one of other sides.
  explicit NoPrinter(const PrinterMetrics& page = {}) : Device(page) {}

  void Line(double, double, double, double) override { refuse(); }
  void Box(double, double, double, double) override { refuse(); }
  void FilledBox(double, double, double, double, Color) override { refuse(); }
  void Circle(double, double, double) override { refuse(); }
  double TextWidth(std::string_view) override { refuse(); }
  double TextHeight(std::string_view) override { refuse(); }
  void PolyBezier(std::span<const PixelPoint>) override { refuse(); }
  void FloodFill(std::int32_t, std::int32_t, Color) override { refuse(); }
  void PaintPicture(const Picture&, double, double) override { refuse(); }
  void EndDoc() override { refuse(); }

 protected:
  void drawPolyline(std::span<const PixelPoint>) override { refuse(); }
  void drawFigure(std::span<const PixelPoint>, bool, bool) override { refuse(); }
  void drawText(const TextRun&) override { refuse(); }
  void clipTo(const PixelRect*) override { refuse(); }

 private:
  [[noreturn]] static void refuse() { throw RuntimeError(kPrinterError); }
};

}  // namespace vk
