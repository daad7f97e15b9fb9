#include "gral/SinkDevice.h"

#include <cmath>
#include <vector>

#include "base/CheckedMath.h"
#include "gral/DrawnBox.h"
#include "gral/PixelPath.h"

namespace vk {
namespace {

/// In sizes of the letter, with its height.
constexpr double kWidestLetter = 3;

}  // namespace

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
  PlanePoint a{x1, y1}, b{x2, y2};
  if (!cutLine(drawnTwips(*this), a, b)) return;
  announcePen();
  sink_.line(a.x, a.y, b.x, b.y);
}

void SinkDevice::Box(double x1, double y1, double x2, double y2) {
  const auto [a, b] = drawnCorners({x1, y1}, {x2, y2});
  announcePen();
  sink_.box(a.x, a.y, b.x, b.y);
}

void SinkDevice::FilledBox(double x1, double y1, double x2, double y2, Color color) {
  const auto [a, b] = drawnCorners({x1, y1}, {x2, y2});
  sink_.filledBox(a.x, a.y, b.x, b.y, color);
}

/// The corners of a rectangle, or where its sides are that far outside that they are not seen.
std::pair<PlanePoint, PlanePoint> SinkDevice::drawnCorners(const PlanePoint& a, const PlanePoint& b) const {
  for (const double coordinate : {a.x, a.y, b.x, b.y}) checked::finite(coordinate);
  const DrawnBox box = drawnTwips(*this);
  return {box.nearest(a), box.nearest(b)};
}

void SinkDevice::Circle(double x, double y, double radius) {
  const PlanePoint centre{x, y}, corner = std::abs(radius) * PlanePoint{1, 1};
  const DrawnBox box = drawnTwips(*this);
  if (box.holds(centre - corner, centre + corner)) {
    announcePen();
    announceFilling();
    return sink_.circle(x, y, radius);
  }
  std::vector<PlanePoint> outline = cutCircle(box, centre, std::abs(radius));
  for (PlanePoint& point : outline) point = (1 / twipsPerContextPixel()) * point;
  makePath(*this, outline);
  StrokeAndFillPath();
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
  const double reach = run.points * kTwipsPerPoint * (kWidestLetter * static_cast<double>(run.text.size()));
  const PlanePoint corner{run.x, run.y}, around{reach, reach};
  if (drawnTwips(*this).misses(corner - around, corner + around)) return;
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
