// What a device draws: it goes to the sink, without what lies far outside.

#include <cmath>
#include <utility>
#include <vector>

#include "base/CheckedMath.h"
#include "gral/Device.h"
#include "gral/DrawnBox.h"
#include "gral/PixelPath.h"

namespace vk {
namespace {

/// In sizes of the letter, with its height.
constexpr double kWidestLetter = 3;

}  // namespace

// ---- What the sink knows

void Device::announcePen() {
  const Pen pen{settings_.foreColor, settings_.drawWidth, settings_.drawStyle};
  if (pen_ == pen) return;
  pen_ = pen;
  sink_.pen(pen);
}

void Device::announceFilling() {
  const Filling filling{settings_.fillColor, settings_.fillStyle};
  if (filling_ == filling) return;
  filling_ = filling;
  sink_.filling(filling);
}

void Device::forgetAnnounced() {
  pen_.reset();
  filling_.reset();
}

// ---- Figures in twips

void Device::Line(double x1, double y1, double x2, double y2) {
  TwipPoint a{x1, y1}, b{x2, y2};
  if (!cutLine(drawnTwips(*this), a, b)) return;
  announcePen();
  sink_.line(a, b);
}

void Device::Box(double x1, double y1, double x2, double y2) {
  const auto [a, b] = drawnCorners({x1, y1}, {x2, y2});
  announcePen();
  sink_.box(a, b);
}

void Device::FilledBox(double x1, double y1, double x2, double y2, Colour color) {
  const auto [a, b] = drawnCorners({x1, y1}, {x2, y2});
  sink_.filledBox(a, b, color);
}

/// The corners of a rectangle, or where its sides are that far outside that they are not seen.
std::pair<TwipPoint, TwipPoint> Device::drawnCorners(const TwipPoint& a, const TwipPoint& b) const {
  for (const double coordinate : {a.x, a.y, b.x, b.y}) checked::finite(coordinate);
  const DrawnBox<unit::Twip> box = drawnTwips(*this);
  return {box.nearest(a), box.nearest(b)};
}

void Device::Circle(double x, double y, double radius) {
  const TwipPoint centre{x, y}, corner = std::abs(radius) * TwipPoint{1, 1};
  const DrawnBox<unit::Twip> box = drawnTwips(*this);
  if (box.holds(centre - corner, centre + corner)) {
    announcePen();
    announceFilling();
    return sink_.circle(centre, Twips(radius));
  }
  std::vector<PixelPlace> outline;
  for (const TwipPoint& point : cutCircle(box, centre, Twips(std::abs(radius)))) {
    outline.push_back(toPixels(point, twipsPerContextPixel()));
  }
  makePath(*this, outline);
  StrokeAndFillPath();
}

// ---- Figures in pixels

void Device::Polyline(std::span<const PixelPoint> points) {
  if (pathOpen_) {
    path_.insert(path_.end(), points.begin(), points.end());
  } else if (points.size() > 1) {
    announcePen();
    sink_.polyline(points);
  }
}

void Device::PolyBezier(std::span<const PixelPoint> points) {
  announcePen();
  sink_.bezier(points);
}

void Device::FloodFill(std::int32_t x, std::int32_t y, Colour limit) {
  announceFilling();
  sink_.floodFill({x, y}, limit);
}

void Device::BeginPath() {
  path_.clear();
  pathOpen_ = true;
}

void Device::drawPath(bool fill, bool stroke) {
  pathOpen_ = false;
  if (path_.empty()) return;
  if (stroke) announcePen();
  if (fill) announceFilling();
  sink_.figure(path_, fill, stroke);
  path_.clear();
}

// ---- Regions and fonts

std::int32_t Device::CreateRectRgn(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) {
  regions_[++lastHandle_] = {x1, y1, x2, y2};
  return lastHandle_;
}

void Device::SelectClipRgn(std::int32_t region) {
  const auto found = regions_.find(region);
  if (found == regions_.end()) throw RuntimeError(kInvalidCall);
  selectedRegion_ = region;
  sink_.clip(&found->second);
}

std::int32_t Device::CreateFontIndirect(const FontRecord& record) {
  fonts_[++lastHandle_] = record;
  return lastHandle_;
}

std::int32_t Device::SelectObject(std::int32_t font) {
  if (font != 0 && !fonts_.contains(font)) throw RuntimeError(kInvalidCall);
  return std::exchange(selectedFont_, font);
}

const FontRecord* Device::selectedFont() const {
  return selectedFont_ == 0 ? nullptr : &fonts_.at(selectedFont_);
}

void Device::DeleteObject(std::int32_t handle) {
  if (regions_.erase(handle) + fonts_.erase(handle) == 0) throw RuntimeError(kInvalidCall);
  if (handle == selectedFont_) selectedFont_ = 0;
  if (handle == selectedRegion_) {
    selectedRegion_ = 0;
    sink_.clip(nullptr);
  }
}

// ---- Texts

double Device::TextWidth(std::string_view text) {
  const bool symbol = isSymbolFont(settings_.fontName);
  double ems = 0;
  for (const char c : text) ems += letters_.advance(symbol, static_cast<unsigned char>(c));
  return ems * settings_.fontSize * kTwipsPerPoint;
}

double Device::TextHeight(std::string_view) {
  return letters_.lineHeight(isSymbolFont(settings_.fontName)) * settings_.fontSize * kTwipsPerPoint;
}

void Device::Print(std::string_view text) {
  writeText({settings_.currentX, settings_.currentY}, text);
}

void Device::TextOut(std::int32_t x, std::int32_t y, std::string_view text) {
  writeText({x * twipsPerContextPixel(), y * twipsPerContextPixel()}, text);
}

void Device::writeText(const TwipPoint& place, std::string_view text) {
  TextRun run{place, PointSize(settings_.fontSize), 0, settings_.fontName, std::string(text)};
  if (const FontRecord* font = selectedFont()) {
    run.size = toPoints(Twips(std::abs(static_cast<double>(font->height)) * twipsPerPixel_));
    run.angle = font->escapement / 10.0;
    run.fontName = font->faceName.data();
  }
  if (run.size <= PointSize()) return;
  const double reach = toTwips(run.size).value() * (kWidestLetter * static_cast<double>(run.text.size()));
  const TwipPoint around{reach, reach};
  if (drawnTwips(*this).misses(place - around, place + around)) return;
  announcePen();
  sink_.text(run);
}

}  // namespace vk
