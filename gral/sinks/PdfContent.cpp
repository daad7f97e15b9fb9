#include "gral/sinks/PdfContent.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "gral/sinks/PdfObjects.h"

namespace vk {
namespace {

constexpr double kUnitsPerTwip = 10;
/// A path of very many lines is slow to show.
constexpr int kLongestPath = 2000;
/// An outline that was drawn once is no object yet.
constexpr std::size_t kNoObject = static_cast<std::size_t>(-1);
/// Longer outlines are hardly drawn twice.
constexpr std::size_t kMarkCorners = 8;
/// The control points of a quarter of a circle, in radii from its ends: (4/3)(sqrt 2 - 1).
constexpr double kQuarterControl = 0.5522847498307936;

long unitsOf(double twips) {
  return std::lround(twips * kUnitsPerTwip);
}

void append(std::string& text, std::initializer_list<long> numbers, const char* behind) {
  char digits[24];
  for (const long number : numbers) {
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    text += ' ';
  }
  text += behind;
}

/// The operands of a colour.
std::string channels(Colour color) {
  std::string text;
  for (const int channel : {color.red(), color.green(), color.blue()}) {
    constexpr long kThousand = 1000, kFull = 255;
    const std::string thousandths = std::to_string(kThousand + (channel * kThousand + kFull / 2) / kFull);
    text += thousandths[0] == '2' ? "1 " : "." + thousandths.substr(1) + " ";
  }
  return text;
}

/// A circle around the origin.
std::string circleOutline(double radius) {
  const long r = unitsOf(radius), c = unitsOf(radius * kQuarterControl);
  std::string text;
  append(text, {r, 0}, "m\n");
  append(text, {r, c, c, r, 0, r}, "c\n");
  append(text, {-c, r, -r, c, -r, 0}, "c\n");
  append(text, {-r, -c, -c, -r, 0, -r}, "c\n");
  append(text, {c, -r, r, -c, r, 0}, "c\nh\n");
  return text;
}

}  // namespace

PdfContent::PdfContent(int pixelRatio, std::size_t firstObject)
    : unitsPerPixel_(kNominalTwipsPerPixel / pixelRatio * kUnitsPerTwip),
      firstObject_(firstObject),
      text_("q .1 0 0 .1 0 0 cm 1 J 1 j []0 d 0 0 0 RG 0 0 0 rg\n") {}

std::string PdfContent::operators() {
  flushLines();
  return std::move(text_) + "Q\n";
}

std::vector<std::string> PdfContent::objects() const {
  std::vector<std::string> result;
  for (const std::string* shape : objects_) result.push_back(*shape);
  return result;
}

// ---- State

PdfContent::Place PdfContent::placeOf(const TwipPoint& point) {
  return {unitsOf(point.x), unitsOf(point.y)};
}

PdfContent::Place PdfContent::placeOf(const PixelPoint& point) const {
  return {std::lround(point.x * unitsPerPixel_), std::lround(point.y * unitsPerPixel_)};
}

void PdfContent::write(std::initializer_list<long> numbers, const char* behind) {
  append(text_, numbers, behind);
}

void PdfContent::pen(const Pen& pen) {
  flushLines();
  pen_ = pen;
}

void PdfContent::clip(const PixelRect* region) {
  if (region == nullptr) return;
  rectangle(placeOf(PixelPoint{region->x1, region->y1}),
            placeOf(PixelPoint{std::max(region->x1, region->x2), std::max(region->y1, region->y2)}),
            "re W n\n");
}

void PdfContent::useStroke(Colour color, double width, int style) {
  if (color != strokeColor_) text_ += channels(color) + "RG\n";
  if (width != strokeWidth_) write({unitsOf(width)}, "w\n");
  if (style != strokeStyle_ || (width != strokeWidth_ && !dashesOf(style).empty())) {
    text_ += '[';
    for (const int length : dashesOf(style)) write({unitsOf(length * width)}, "");
    text_ += "]0 d\n";
  }
  strokeColor_ = color;
  strokeWidth_ = width;
  strokeStyle_ = style;
}

void PdfContent::useFilling(Colour color) {
  if (color != fillColor_) text_ += channels(color) + "rg\n";
  fillColor_ = color;
}

/// How a closed outline is painted with pen and filling, which are told before it.
const char* PdfContent::paintOperator(bool fill, bool stroke) {
  flushLines();
  fill = fill && filling_.style == kFillSolid;
  stroke = stroke && pen_.style != kDrawTransparent;
  if (fill) useFilling(filling_.color);
  if (stroke) useStroke(pen_.color, pen_.width * kNominalTwipsPerPixel, pen_.style);
  return fill && stroke ? "B*\n" : fill ? "f*\n" : stroke ? "S\n" : "n\n";
}

// ---- Lines

void PdfContent::line(const TwipPoint& from, const TwipPoint& to) {
  if (lines_ == 0) paintOperator(false, true);
  const Place start = placeOf(from), end = placeOf(to);
  if (lines_ == 0 || start != lineEnd_) write({start.x, start.y}, "m ");
  write({end.x, end.y}, "l\n");
  lineEnd_ = end;
  if (++lines_ == kLongestPath) flushLines();
}

void PdfContent::flushLines() {
  if (lines_ > 0) text_ += pen_.style == kDrawTransparent ? "n\n" : "S\n";
  lines_ = 0;
}

void PdfContent::polyline(std::span<const PixelPoint> points) {
  figure(points, false, true);
}

void PdfContent::bezier(std::span<const PixelPoint> points) {
  if (points.empty()) return;
  const char* paint = paintOperator(false, true);
  const Place start = placeOf(points[0]);
  write({start.x, start.y}, "m\n");
  for (std::size_t k = 1; k + 2 < points.size(); k += 3) {
    const Place a = placeOf(points[k]), b = placeOf(points[k + 1]), c = placeOf(points[k + 2]);
    write({a.x, a.y, b.x, b.y, c.x, c.y}, "c\n");
  }
  text_ += paint;
}

// ---- Areas

void PdfContent::rectangle(const Place& a, const Place& b, const char* behind) {
  write({a.x, a.y, b.x - a.x, b.y - a.y}, behind);
}

void PdfContent::box(const TwipPoint& a, const TwipPoint& b) {
  const char* paint = paintOperator(false, true);
  rectangle(placeOf(a), placeOf(b), "re ");
  text_ += paint;
}

void PdfContent::filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) {
  flushLines();
  useFilling(color);
  rectangle(placeOf(a), placeOf(b), "re f\n");
}

void PdfContent::circle(const TwipPoint& centre, Twips radius) {
  const char* paint = paintOperator(true, true);
  const double twips = std::abs(radius.value());
  drawShared(placeOf(centre), circleOutline(twips) + paint, unitsOf(twips));
}

void PdfContent::figure(std::span<const PixelPoint> points, bool fill, bool stroke) {
  if (points.empty()) return;
  const char* paint = paintOperator(fill, stroke);
  if (fill && !stroke && filling_.style == kFillSolid) {
    useStroke(filling_.color, kTouchingOutline, kDrawSolid);
    paint = "B*\n";
  }
  const bool mark = fill && stroke && points.size() <= kMarkCorners;
  const Place origin = mark ? placeOf(points[0]) : Place{0, 0};
  std::string shape;
  std::string& text = mark ? shape : text_;
  const char* join = "m ";
  long reach = 0;
  for (const PixelPoint& point : points) {
    const auto [x, y] = placeOf(point);
    append(text, {x - origin.x, y - origin.y}, join);
    join = "l\n";
    reach = std::max({reach, std::abs(x - origin.x), std::abs(y - origin.y)});
  }
  if (fill) text += "h ";
  text += paint;
  if (mark) drawShared(origin, shape, reach);
}

void PdfContent::drawShared(const Place& origin, const std::string& shape, long reach) {
  text_ += "q 1 0 0 1 ";
  write({origin.x, origin.y}, "cm");
  const bool small = reach + unitsOf(strokeWidth_) <= kPdfObjectReach;
  const auto [found, first] = shapes_.try_emplace(shape, kNoObject);
  if (first || !small) {
    text_ += "\n" + shape + "Q\n";
    return;
  }
  if (found->second == kNoObject) {
    found->second = firstObject_ + objects_.size();
    objects_.push_back(&found->first);
  }
  text_ += pdfObjectName(found->second) + " Do Q\n";
}

}  // namespace vk
