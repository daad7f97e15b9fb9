#include "gral/SinkDevice.h"

namespace vk {

SinkDevice::SinkDevice(const FormMetrics& form, DrawingSink& sink, LetterMetrics& letters)
    : Device(form), sink_(sink), letters_(letters) {}

SinkDevice::SinkDevice(const PrinterMetrics& printer, DrawingSink& sink, LetterMetrics& letters)
    : Device(printer), sink_(sink), letters_(letters) {}

void SinkDevice::announcePen() {
  const Pen pen{ForeColor(), DrawWidth(), DrawStyle()};
  if (pen_ == pen) return;
  pen_ = pen;
  sink_.pen(pen);
}

void SinkDevice::announceFilling() {
  const Filling filling{FillColor(), FillStyle()};
  if (filling_ == filling) return;
  filling_ = filling;
  sink_.filling(filling);
}

void SinkDevice::forgetAnnounced() {
  pen_.reset();
  filling_.reset();
}

void SinkDevice::Line(double x1, double y1, double x2, double y2) {
  announcePen();
  sink_.line(x1, y1, x2, y2);
}

void SinkDevice::Box(double x1, double y1, double x2, double y2) {
  announcePen();
  sink_.box(x1, y1, x2, y2);
}

void SinkDevice::FilledBox(double x1, double y1, double x2, double y2, Color color) {
  sink_.filledBox(x1, y1, x2, y2, color);
}

void SinkDevice::Circle(double x, double y, double radius) {
  announcePen();
  announceFilling();
  sink_.circle(x, y, radius);
}

double SinkDevice::TextWidth(std::string_view text) {
  const bool symbol = isSymbolFont(FontName());
  double ems = 0;
  for (const char c : text) ems += letters_.advance(symbol, static_cast<unsigned char>(c));
  return ems * FontSize() * kTwipsPerPoint;
}

double SinkDevice::TextHeight(std::string_view) {
  return letters_.lineHeight(isSymbolFont(FontName())) * FontSize() * kTwipsPerPoint;
}

void SinkDevice::PolyBezier(std::span<const PixelPoint> points) {
  announcePen();
  sink_.bezier(points);
}

void SinkDevice::FloodFill(std::int32_t x, std::int32_t y, Color limit) {
  announceFilling();
  sink_.floodFill({x, y}, limit);
}

void SinkDevice::drawPolyline(std::span<const PixelPoint> points) {
  announcePen();
  sink_.polyline(points);
}

void SinkDevice::drawFigure(std::span<const PixelPoint> points, bool fill, bool stroke) {
  if (stroke) announcePen();
  if (fill) announceFilling();
  sink_.figure(points, fill, stroke);
}

void SinkDevice::drawText(const TextRun& run) {
  if (run.points <= 0) return;
  announcePen();
  sink_.text(run);
}

void SinkDevice::clipTo(const PixelRect* region) {
  sink_.clip(region);
}

void SinkDevice::cleared() {
  forgetAnnounced();
  sink_.clear(areaWidth(), areaHeight(), BackColor());
}

void SinkDevice::refreshed() {
  sink_.refresh();
}

}  // namespace vk
