#include "gral/sinks/SvgWriter.h"

#include <algorithm>
#include <cmath>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "gral/sinks/Hatch.h"
#include "gral/sinks/PictureBoxes.h"

namespace vk {
namespace {

constexpr const char* kFontFamily = "Arial, 'Liberation Sans', Helvetica, sans-serif";
/// A path of very many lines is slow to show; it is cut at about this length.
constexpr std::size_t kLongPath = 20000;
/// Areas without an outline touch one another. Some viewers need not smooth them.
constexpr const char* kTouching = " shape-rendering=\"crispEdges\"";

std::string attribute(std::string_view name, std::string_view value) {
  std::string text;
  text.reserve(name.size() + value.size() + 4);
  return text.append(" ").append(name).append("=\"").append(value).append("\"");
}

std::string colorText(Colour color) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[color.rgb() >> shift & 15];
  return text;
}

/// The dashes of a pen of this width in twips.
std::string dashLengths(int style, double width) {
  std::string result;
  for (const int length : dashesOf(style)) result += (result.empty() ? "" : " ") + svgNumber(length * width);
  return result;
}

/// The lines of a hatch in one cell, a nominal pixel wide and inside the cell, which cuts what leaves it: the
/// slanted ones pass its corners, where a short piece of the neighbour's line is drawn along.
std::string hatchInCell(HatchDirection direction, double cell) {
  constexpr double kWidth = kNominalTwipsPerPixel;
  const std::string c = svgNumber(cell), w = svgNumber(kWidth), ww = svgNumber(2 * kWidth),
                    m = svgNumber(kWidth / 2);
  const std::string before = svgNumber(cell - kWidth), behind = svgNumber(cell + kWidth);
  switch (direction) {
    case HatchDirection::kHorizontal:
      return "M0 " + m + "H" + c;
    case HatchDirection::kVertical:
      return "M" + m + " 0V" + c;
    case HatchDirection::kUpward:
      return "M0 " + c + "L" + c + " 0M-" + w + " " + w + "l" + ww + " -" + ww + "M" + before + " " + behind +
             "l" + ww + " -" + ww;
    default:
      return "M0 0L" + c + " " + c + "M" + before + " -" + w + "l" + ww + " " + ww + "M-" + w + " " + before +
             "l" + ww + " " + ww;
  }
}

std::string escaped(const std::string& utf8) {
  std::string result;
  for (const char c : utf8) {
    if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '>') {
      result += "&gt;";
    } else {
      result += c;
    }
  }
  return result;
}

bool isControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 32 || code == 127;
}

}  // namespace

SvgWriter::SvgWriter(int pixelRatio, LetterMetrics& letters)
    : twipsPerPixel_(kNominalTwipsPerPixel / pixelRatio), letters_(letters), path_(twipsPerPixel_) {}

std::string SvgWriter::document() {
  closeGroup();
  const auto points = [](double twips) { return svgNumber(twips / kTwipsPerPoint) + "pt"; };
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
         attribute("width", points(size_.width)) + attribute("height", points(size_.height)) +
         attribute("viewBox", "0 0 " + svgNumber(size_.width) + " " + svgNumber(size_.height)) +
         attribute("font-family", kFontFamily) +
         " stroke-linecap=\"round\" stroke-linejoin=\"round\">\n<defs>\n" + definitions_ + "</defs>\n" +
         body_ + "</svg>\n";
}

// ---- State

void SvgWriter::clear(const SheetSize& size, Colour background) {
  size_ = size;
  definitions_.clear();
  defined_.clear();
  path_.take();
  groupOpen_ = false;
  clip_.clear();
  body_ = "<rect" + attribute("width", svgNumber(size.width)) + attribute("height", svgNumber(size.height)) +
          attribute("fill", colorText(background)) + "/>\n";
}

void SvgWriter::pen(const Pen& pen) {
  closeGroup();
  pen_ = pen;
}

void SvgWriter::filling(const Filling& filling) {
  filling_ = filling;
}

void SvgWriter::clip(const PixelRect* region) {
  closeGroup();
  clip_.clear();
  if (region == nullptr) return;
  const auto twips = [this](int pixels) { return pixels * twipsPerPixel_; };
  const std::string box = attribute("x", svgNumber(twips(region->x1))) +
                          attribute("y", svgNumber(twips(region->y1))) +
                          attribute("width", svgNumber(twips(std::max(0, region->x2 - region->x1)))) +
                          attribute("height", svgNumber(twips(std::max(0, region->y2 - region->y1))));
  clip_ = "clip" + generalText(static_cast<int>(defined_.size()));
  defined_.insert(clip_);
  definitions_ += "<clipPath" + attribute("id", clip_) + "><rect" + box + "/></clipPath>\n";
}

/// The filling as a colour, or as a pattern that is defined when it is first used.
std::string SvgWriter::paint() {
  if (filling_.style == kFillTransparent) return "none";
  const std::string color = colorText(filling_.color);
  if (filling_.style == kFillSolid) return color;
  const double cell = kHatchCell * kNominalTwipsPerPixel;
  const std::string name = "hatch" + generalText(filling_.style) + color.substr(1);
  if (defined_.insert(name).second) {
    std::string lines;
    for (const HatchDirection direction : hatchDirections(filling_.style))
      lines += hatchInCell(direction, cell);
    definitions_ += "<pattern" + attribute("id", name) + attribute("width", svgNumber(cell)) +
                    attribute("height", svgNumber(cell)) + " patternUnits=\"userSpaceOnUse\"><path" +
                    attribute("stroke", color) + attribute("stroke-width", svgNumber(kNominalTwipsPerPixel)) +
                    attribute("d", lines) + "/></pattern>\n";
  }
  return "url(#" + name + ")";
}

void SvgWriter::openGroup() {
  if (groupOpen_) return;
  groupOpen_ = true;
  groupFilling_ = filling_;
  const double width = pen_.width * kNominalTwipsPerPixel;
  const std::string dashes = dashLengths(pen_.style, width);
  body_ += "<g" + attribute("stroke", pen_.style == kDrawTransparent ? "none" : colorText(pen_.color)) +
           attribute("stroke-width", svgNumber(width)) + attribute("fill", paint());
  if (!dashes.empty()) body_ += attribute("stroke-dasharray", dashes);
  if (!clip_.empty()) body_ += attribute("clip-path", "url(#" + clip_ + ")");
  body_ += ">\n";
}

/// A group with the present filling.
void SvgWriter::openFilledGroup() {
  if (groupFilling_ != filling_) closeGroup();
  openGroup();
}

void SvgWriter::closeGroup() {
  flushPath();
  if (groupOpen_) body_ += "</g>\n";
  groupOpen_ = false;
}

void SvgWriter::flushPath() {
  if (path_.empty()) return;
  openGroup();
  body_ += "<path fill=\"none\"" + attribute("d", path_.take()) + "/>\n";
}

/// The end of the body, for an element in a group with the present pen.
std::string& SvgWriter::element() {
  flushPath();
  openGroup();
  return body_;
}

// ---- Primitives

std::string SvgWriter::place(const TwipPoint& point) const {
  return svgNumber(point.x) + " " + svgNumber(point.y);
}

std::string SvgWriter::place(const PixelPoint& point) const {
  return place(TwipPoint{point.x * twipsPerPixel_, point.y * twipsPerPixel_});
}

std::string SvgWriter::path(std::span<const PixelPoint> points, bool closed) const {
  SvgPath path(twipsPerPixel_);
  path.join(points, closed);
  return attribute("d", path.take());
}

void SvgWriter::line(const TwipPoint& a, const TwipPoint& b) {
  path_.line(a, b, !dashesOf(pen_.style).empty());
  if (path_.size() > kLongPath) flushPath();
}

void SvgWriter::box(const TwipPoint& a, const TwipPoint& b) {
  element("<path fill=\"none\"" +
          attribute("d", "M" + place(a) + "H" + svgNumber(b.x) + "V" + svgNumber(b.y) + "H" + svgNumber(a.x) +
                             "Z") +
          "/>");
}

void SvgWriter::filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) {
  element("<path stroke=\"none\"" + attribute("fill", colorText(color)) +
          attribute("d", "M" + place(a) + "H" + svgNumber(b.x) + "V" + svgNumber(b.y) + "H" + svgNumber(a.x) +
                             "Z") +
          "/>");
}

void SvgWriter::circle(const TwipPoint& centre, Twips radius) {
  openFilledGroup();
  // There may be very many marks: their middles and sizes are as near as the places of paths.
  const double size = std::abs(radius.value());
  element() += "<circle" + attribute("cx", svgNumber(std::round(centre.x))) +
               attribute("cy", svgNumber(std::round(centre.y))) +
               attribute("r", svgNumber(size < 1 ? size : std::round(size))) + "/>\n";
}

void SvgWriter::polyline(std::span<const PixelPoint> points) {
  element("<path fill=\"none\"" + path(points, false) + "/>");
}

void SvgWriter::bezier(std::span<const PixelPoint> points) {
  if (points.empty()) return;
  std::string curve = "M" + place(points[0]);
  for (std::size_t k = 1; k + 2 < points.size(); k += 3) {
    curve += "C" + place(points[k]) + " " + place(points[k + 1]) + " " + place(points[k + 2]);
  }
  element("<path fill=\"none\"" + attribute("d", curve) + "/>");
}

void SvgWriter::figure(std::span<const PixelPoint> points, bool fill, bool stroke) {
  const std::string outline = path(points, fill);
  if (!fill) return element("<path fill=\"none\"" + outline + "/>");
  if (stroke) {
    openFilledGroup();
    return element("<path" + outline + "/>");
  }
  // Surfaces consist of many areas without outlines: a group for each would be longer than the area.
  openGroup();
  element("<path" + (groupFilling_ == filling_ ? "" : attribute("fill", paint())) + touchingOutline() +
          kTouching + outline + "/>");
}

std::string SvgWriter::touchingOutline() const {
  if (filling_.style != kFillSolid) return attribute("stroke", "none");
  return attribute("stroke", colorText(filling_.color)) +
         attribute("stroke-width", svgNumber(kTouchingOutline)) +
         (dashesOf(pen_.style).empty() ? "" : attribute("stroke-dasharray", "none"));
}

void SvgWriter::text(const TextRun& run) {
  const bool symbol = isSymbolFont(run.fontName);
  const double size = toTwips(run.size).value();
  std::string start =
      "<text stroke=\"none\"" + attribute("fill", colorText(pen_.color)) +
      attribute("font-size", svgNumber(size)) +
      attribute("transform", "translate(" + place(run.place) + ")" +
                                 (run.angle == 0 ? "" : "rotate(" + svgNumber(-run.angle) + ")"));
  double x = 0;
  for (const char c : run.text) {
    const std::string letter = toUtf8(std::string(1, c), symbol ? CodePage::kSymbol : CodePage::kWindows1252);
    if (!isControl(c) && c != ' ') {
      element(start + attribute("x", svgNumber(x)) +
              attribute("y", svgNumber(letters_.ascent(symbol) * size)) + ">" + escaped(letter) + "</text>");
    }
    x += letters_.advance(symbol, static_cast<unsigned char>(c)) * size;
  }
}

/// Boxes of one colour that follow one another are one path, so that no seams show between them.
void SvgWriter::picture(const Picture& picture, const TwipPoint& corner) {
  const double step = picture.twipsPerPixel;
  std::string path;
  std::uint32_t color = 0;
  const auto flush = [&] {
    if (!path.empty()) {
      element("<path stroke=\"none\"" + attribute("fill", colorText(Colour::fromRgb(color))) +
              attribute("d", path) + "/>");
    }
    path.clear();
  };
  for (const PictureBox& box : boxesOf(picture)) {
    if (box.color != color) flush();
    color = box.color;
    path += "M" + place(TwipPoint{corner.x + box.x * step, corner.y + box.y * step}) + "h" +
            svgNumber(box.width * step) + "v" + svgNumber(box.height * step) + "h-" +
            svgNumber(box.width * step) + "z";
  }
  flush();
}

}  // namespace vk
