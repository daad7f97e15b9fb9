#include "gral/sinks/SvgWriter.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "gral/sinks/Hatch.h"
#include "gral/sinks/PictureBoxes.h"
#include "gral/sinks/SvgMarkup.h"
#include "gral/sinks/SvgText.h"

namespace vk {
namespace {

constexpr const char* kFontFamily = "Arial, 'Liberation Sans', Helvetica, sans-serif";
/// A path of very many lines is slow to show; it is cut at about this length.
constexpr std::size_t kLongPath = 20000;
/// Areas without an outline touch one another. Some viewers need not smooth them.
constexpr const char* kTouching = " shape-rendering=\"crispEdges\"";

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

}  // namespace

SvgWriter::SvgWriter(int pixelRatio, LetterMetrics& letters)
    : twipsPerPixel_(kNominalTwipsPerPixel / pixelRatio),
      letters_(letters),
      path_(twipsPerPixel_),
      text_(letters) {}

std::string SvgWriter::document(const FigureSheet& sheet) {
  closeGroup();
  const auto [size, scale, place] = sheet.placeFor(size_);
  const TwipPoint corner = -1 / scale * place;
  const auto points = [](double twips) { return svgNumber(twips / kTwipsPerPoint) + "pt"; };
  const std::string width = svgNumber(size.width / scale), height = svgNumber(size.height / scale);
  const FigureWords& words = sheet.words;
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                     svgAttribute("width", points(size.width)) + svgAttribute("height", points(size.height)) +
                     svgAttribute("viewBox", this->place(corner) + " " + width + " " + height) +
                     svgAttribute("font-family", kFontFamily) +
                     " stroke-linecap=\"round\" stroke-linejoin=\"round\"" +
                     (words.title.empty() ? "" : " role=\"img\"") + ">\n";
  if (!words.title.empty()) text += "<title>" + svgEscaped(words.title) + "</title>\n";
  if (!words.description.empty()) text += "<desc>" + svgEscaped(words.description) + "</desc>\n";
  text += "<defs>\n" + definitions_ + "</defs>\n";
  if (!sheet.transparent) {
    text += "<rect" +
            (corner == TwipPoint{}
                 ? ""
                 : svgAttribute("x", svgNumber(corner.x)) + svgAttribute("y", svgNumber(corner.y))) +
            svgAttribute("width", width) + svgAttribute("height", height) +
            svgAttribute("fill", svgColour(ground_)) + "/>\n";
  }
  return text + body_ + "</svg>\n";
}

// ---- State

void SvgWriter::clear(const SheetSize& size, Colour background) {
  size_ = size;
  definitions_.clear();
  defined_.clear();
  path_.take();
  text_.take();
  groupOpen_ = false;
  clip_.clear();
  ground_ = background;
  body_.clear();
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
  const std::string box = svgAttribute("x", svgNumber(twips(region->x1))) +
                          svgAttribute("y", svgNumber(twips(region->y1))) +
                          svgAttribute("width", svgNumber(twips(std::max(0, region->x2 - region->x1)))) +
                          svgAttribute("height", svgNumber(twips(std::max(0, region->y2 - region->y1))));
  clip_ = "clip" + generalText(static_cast<int>(defined_.size()));
  defined_.insert(clip_);
  definitions_ += "<clipPath" + svgAttribute("id", clip_) + "><rect" + box + "/></clipPath>\n";
}

/// The filling as a colour, or as a pattern that is defined when it is first used.
std::string SvgWriter::paint() {
  if (filling_.style == kFillTransparent) return "none";
  std::string color = svgColour(filling_.color);
  if (filling_.style == kFillSolid) return color;
  const double cell = kHatchCell * kNominalTwipsPerPixel;
  const std::string name = "hatch" + generalText(filling_.style) + color.substr(1);
  if (defined_.insert(name).second) {
    std::string lines;
    for (const HatchDirection direction : hatchDirections(filling_.style))
      lines += hatchInCell(direction, cell);
    definitions_ += "<pattern" + svgAttribute("id", name) + svgAttribute("width", svgNumber(cell)) +
                    svgAttribute("height", svgNumber(cell)) + " patternUnits=\"userSpaceOnUse\"><path" +
                    svgAttribute("stroke", color) +
                    svgAttribute("stroke-width", svgNumber(kNominalTwipsPerPixel)) +
                    svgAttribute("d", lines) + "/></pattern>\n";
  }
  return "url(#" + name + ")";
}

void SvgWriter::openGroup() {
  if (groupOpen_) return;
  groupOpen_ = true;
  groupFilling_ = filling_;
  const double width = pen_.width * kNominalTwipsPerPixel;
  const std::string dashes = dashLengths(pen_.style, width);
  body_ += "<g" + svgAttribute("stroke", pen_.style == kDrawTransparent ? "none" : svgColour(pen_.color)) +
           svgAttribute("stroke-width", svgNumber(width)) + svgAttribute("fill", paint());
  if (!dashes.empty()) body_ += svgAttribute("stroke-dasharray", dashes);
  if (!clip_.empty()) body_ += svgAttribute("clip-path", "url(#" + clip_ + ")");
  body_ += ">\n";
}

/// A group with the present filling.
void SvgWriter::openFilledGroup() {
  if (groupFilling_ != filling_) closeGroup();
  openGroup();
}

void SvgWriter::closeGroup() {
  flush();
  if (groupOpen_) body_ += "</g>\n";
  groupOpen_ = false;
}

/// Writes what waits: lines or letters, since each comes after the end of the other.
void SvgWriter::flush() {
  if (!path_.empty()) {
    openGroup();
    body_ += "<path fill=\"none\"" + svgAttribute("d", path_.take()) + "/>\n";
  }
  if (text_.empty()) return;
  openGroup();
  body_ += svgText(text_.take(), pen_.color, letters_) + "\n";
}

/// The end of the body, for an element in a group with the present pen.
std::string& SvgWriter::element() {
  flush();
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
  return svgAttribute("d", path.take());
}

void SvgWriter::line(const TwipPoint& a, const TwipPoint& b) {
  if (!text_.empty()) flush();
  path_.line(a, b, !dashesOf(pen_.style).empty());
  if (path_.size() > kLongPath) flush();
}

void SvgWriter::box(const TwipPoint& a, const TwipPoint& b) {
  element("<path fill=\"none\"" +
          svgAttribute("d", "M" + place(a) + "H" + svgNumber(b.x) + "V" + svgNumber(b.y) + "H" +
                                svgNumber(a.x) + "Z") +
          "/>");
}

void SvgWriter::filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) {
  element("<path stroke=\"none\"" + svgAttribute("fill", svgColour(color)) +
          svgAttribute("d", "M" + place(a) + "H" + svgNumber(b.x) + "V" + svgNumber(b.y) + "H" +
                                svgNumber(a.x) + "Z") +
          "/>");
}

void SvgWriter::circle(const TwipPoint& centre, Twips radius) {
  openFilledGroup();
  // There may be very many marks: their middles and sizes are as near as the places of paths.
  const double size = std::abs(radius.value());
  element() += "<circle" + svgAttribute("cx", svgNumber(std::round(centre.x))) +
               svgAttribute("cy", svgNumber(std::round(centre.y))) +
               svgAttribute("r", svgNumber(size < 1 ? size : std::round(size))) + "/>\n";
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
  element("<path fill=\"none\"" + svgAttribute("d", curve) + "/>");
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
  element("<path" + (groupFilling_ == filling_ ? "" : svgAttribute("fill", paint())) + touchingOutline() +
          kTouching + outline + "/>");
}

std::string SvgWriter::touchingOutline() const {
  if (filling_.style != kFillSolid) return svgAttribute("stroke", "none");
  return svgAttribute("stroke", svgColour(filling_.color)) +
         svgAttribute("stroke-width", svgNumber(kTouchingOutline)) +
         (dashesOf(pen_.style).empty() ? "" : svgAttribute("stroke-dasharray", "none"));
}

void SvgWriter::text(const TextRun& run) {
  if (!text_.continues(run)) flush();
  text_.add(run);
}

/// Boxes of one colour that follow one another are one path, so that no seams show between them.
void SvgWriter::picture(const Picture& picture, const TwipPoint& corner) {
  const double step = picture.twipsPerPixel;
  std::string path;
  std::uint32_t color = 0;
  const auto flush = [&] {
    if (!path.empty()) {
      element("<path stroke=\"none\"" + svgAttribute("fill", svgColour(Colour::fromRgb(color))) +
              svgAttribute("d", path) + "/>");
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
