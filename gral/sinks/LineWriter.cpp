#include "gral/sinks/LineWriter.h"

#include "base/NumberText.h"
#include "base/Rounding.h"

namespace vk {
namespace {

constexpr const char* kPenStyles[] = {"solid",      "dash",        "dot",   "dashdot",
                                      "dashdotdot", "transparent", "inside"};
constexpr const char* kFillStyles[] = {"solid",  "transparent", "horizontal", "vertical",
                                       "upward", "downward",    "cross",      "diagonalcross"};
constexpr char kHexDigits[] = "0123456789ABCDEF";

std::string recordedNumber(double value) {
  constexpr double kThousandths = 1000;
  const double rounded = roundHalfEven(value * kThousandths) / kThousandths;
  return generalText(rounded == 0 ? 0.0 : rounded);
}

std::string place(const TwipPoint& point) {
  return recordedNumber(point.x) + "," + recordedNumber(point.y);
}

std::string hexByte(int value) {
  return {kHexDigits[(value >> 4) & 15], kHexDigits[value & 15]};
}

std::string recordedColor(Colour color) {
  return hexByte(color.red()) + hexByte(color.green()) + hexByte(color.blue());
}

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) {
    const bool plain = c >= ' ' && c <= '~';
    result += plain ? std::string(1, c) : "\\x" + hexByte(static_cast<unsigned char>(c));
  }
  return result + "'";
}

}  // namespace

void LineWriter::clear(const SheetSize& size, Colour background) {
  add("clear " + place({size.width, size.height}) + " tw " + recordedColor(background));
}

void LineWriter::pen(const Pen& pen) {
  add("pen " + recordedColor(pen.color) + " width " + generalText(pen.width) + " " + kPenStyles[pen.style]);
}

void LineWriter::filling(const Filling& filling) {
  add("filling " + recordedColor(filling.color) + " " + kFillStyles[filling.style]);
}

void LineWriter::line(const TwipPoint& a, const TwipPoint& b) {
  add("line " + place(a) + " " + place(b) + " tw");
}

void LineWriter::box(const TwipPoint& a, const TwipPoint& b) {
  add("box " + place(a) + " " + place(b) + " tw");
}

void LineWriter::filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) {
  add("filledbox " + place(a) + " " + place(b) + " tw " + recordedColor(color));
}

void LineWriter::circle(const TwipPoint& centre, Twips radius) {
  add("circle " + place(centre) + " radius " + recordedNumber(radius.value()) + " tw");
}

void LineWriter::addPoints(const std::string& name, std::span<const PixelPoint> points) {
  std::string result = name;
  for (const PixelPoint& point : points) result += " " + generalText(point.x) + "," + generalText(point.y);
  add(result + " px");
}

void LineWriter::polyline(std::span<const PixelPoint> points) {
  addPoints("polyline", points);
}

void LineWriter::bezier(std::span<const PixelPoint> points) {
  addPoints("bezier", points);
}

void LineWriter::figure(std::span<const PixelPoint> points, bool fill, bool stroke) {
  addPoints(fill && stroke ? "fill+stroke" : fill ? "fill" : "stroke", points);
}

void LineWriter::floodFill(const PixelPoint& start, Colour limit) {
  add("floodfill " + generalText(start.x) + "," + generalText(start.y) + " px to " + recordedColor(limit));
}

void LineWriter::text(const TextRun& run) {
  add("text " + place(run.place) + " tw " + run.fontName + " " + recordedNumber(run.size.value()) + " pt " +
      recordedNumber(run.angle) + " deg " + quoted(run.text));
}

void LineWriter::clip(const PixelRect* region) {
  if (region == nullptr) return add("clip off");
  const PixelPoint corners[] = {{region->x1, region->y1}, {region->x2, region->y2}};
  addPoints("clip", corners);
}

void LineWriter::picture(const Picture& picture, const TwipPoint& corner) {
  add("picture " + place(corner) + " tw " + generalText(picture.width) + "x" + generalText(picture.height) +
      " of " + recordedNumber(picture.twipsPerPixel) + " tw");
}

void LineWriter::refresh() {
  add("refresh");
}

}  // namespace vk
