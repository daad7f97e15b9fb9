#include "gral/sinks/DisplayList.h"

#include "gral/sinks/LineWriter.h"

namespace vk {
namespace {

Colour colourOf(double number) {
  return Colour::fromBgr(static_cast<std::int32_t>(number));
}

}  // namespace

void DisplayList::reset() {
  *this = DisplayList();
}

// What belongs to a primitive is stored before it is entered: without the memory for it there is no primitive.

void DisplayList::add(Kind kind, std::initializer_list<double> numbers) {
  const std::size_t first = numbers_.size();
  numbers_.insert(numbers_.end(), numbers);
  entries_.push_back({kind, first, numbers.size()});
}

void DisplayList::add(Kind kind, std::span<const PixelPoint> points) {
  const std::size_t first = points_.size();
  points_.insert(points_.end(), points.begin(), points.end());
  entries_.push_back({kind, first, points.size()});
}

void DisplayList::clear(const SheetSize& size, Colour background) {
  add(Kind::kClear, {size.width, size.height, static_cast<double>(background.bgr())});
}

void DisplayList::pen(const Pen& pen) {
  add(Kind::kPen,
      {static_cast<double>(pen.color.bgr()), static_cast<double>(pen.width), static_cast<double>(pen.style)});
}

void DisplayList::filling(const Filling& filling) {
  add(Kind::kFilling, {static_cast<double>(filling.color.bgr()), static_cast<double>(filling.style)});
}

void DisplayList::line(const TwipPoint& a, const TwipPoint& b) {
  add(Kind::kLine, {a.x, a.y, b.x, b.y});
}

void DisplayList::box(const TwipPoint& a, const TwipPoint& b) {
  add(Kind::kBox, {a.x, a.y, b.x, b.y});
}

void DisplayList::filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) {
  add(Kind::kFilledBox, {a.x, a.y, b.x, b.y, static_cast<double>(color.bgr())});
}

void DisplayList::circle(const TwipPoint& centre, Twips radius) {
  add(Kind::kCircle, {centre.x, centre.y, radius.value()});
}

void DisplayList::polyline(std::span<const PixelPoint> points) {
  add(Kind::kPolyline, points);
}

void DisplayList::bezier(std::span<const PixelPoint> points) {
  add(Kind::kBezier, points);
}

void DisplayList::figure(std::span<const PixelPoint> points, bool fill, bool stroke) {
  add(fill && stroke ? Kind::kFillAndStroke : fill ? Kind::kFill : Kind::kStroke, points);
}

void DisplayList::floodFill(const PixelPoint& start, Colour limit) {
  add(Kind::kFloodFill,
      {static_cast<double>(start.x), static_cast<double>(start.y), static_cast<double>(limit.bgr())});
  needsPixels_ = true;
}

void DisplayList::text(const TextRun& run) {
  texts_.push_back(run);
  entries_.push_back({Kind::kText, texts_.size() - 1, 1});
}

void DisplayList::clip(const PixelRect* region) {
  if (region == nullptr) {
    add(Kind::kUnclip, std::initializer_list<double>());
  } else {
    const PixelPoint corners[] = {{region->x1, region->y1}, {region->x2, region->y2}};
    add(Kind::kClip, corners);
  }
}

void DisplayList::picture(const Picture& picture, const TwipPoint& corner) {
  pictures_.push_back({picture, corner});
  entries_.push_back({Kind::kPicture, pictures_.size() - 1, 1});
}

void DisplayList::refresh() {
  add(Kind::kRefresh, std::initializer_list<double>());
}

void DisplayList::replay(DrawingSink& sink, std::size_t first) const {
  for (std::size_t i = first; i < entries_.size(); ++i) {
    if (!replaySettings(entries_[i], sink)) replay(entries_[i], sink);
  }
}

bool DisplayList::replaySettings(const Entry& entry, DrawingSink& sink) const {
  const double* n = numbers(entry);
  switch (entry.kind) {
    case Kind::kClear:
      sink.clear({n[0], n[1]}, colourOf(n[2]));
      return true;
    case Kind::kPen:
      sink.pen({colourOf(n[0]), static_cast<int>(n[1]), static_cast<int>(n[2])});
      return true;
    case Kind::kFilling:
      sink.filling({colourOf(n[0]), static_cast<int>(n[1])});
      return true;
    case Kind::kClip: {
      const auto corners = points(entry);
      const PixelRect region{corners[0].x, corners[0].y, corners[1].x, corners[1].y};
      sink.clip(&region);
      return true;
    }
    case Kind::kUnclip:
      sink.clip(nullptr);
      return true;
    case Kind::kRefresh:
      sink.refresh();
      return true;
    default:
      return false;
  }
}

void DisplayList::replay(const Entry& entry, DrawingSink& sink) const {
  const double* n = numbers(entry);
  switch (entry.kind) {
    case Kind::kLine:
      return sink.line({n[0], n[1]}, {n[2], n[3]});
    case Kind::kBox:
      return sink.box({n[0], n[1]}, {n[2], n[3]});
    case Kind::kFilledBox:
      return sink.filledBox({n[0], n[1]}, {n[2], n[3]}, colourOf(n[4]));
    case Kind::kCircle:
      return sink.circle({n[0], n[1]}, Twips(n[2]));
    case Kind::kFloodFill:
      return sink.floodFill({static_cast<std::int32_t>(n[0]), static_cast<std::int32_t>(n[1])},
                            colourOf(n[2]));
    case Kind::kText:
      return sink.text(texts_[entry.first]);
    case Kind::kPicture: {
      const PlacedPicture& placed = pictures_[entry.first];
      return sink.picture(placed.picture, placed.corner);
    }
    default:
      return replayFigure(entry, sink);
  }
}

void DisplayList::replayFigure(const Entry& entry, DrawingSink& sink) const {
  switch (entry.kind) {
    case Kind::kPolyline:
      return sink.polyline(points(entry));
    case Kind::kBezier:
      return sink.bezier(points(entry));
    default:
      return sink.figure(points(entry), entry.kind != Kind::kStroke, entry.kind != Kind::kFill);
  }
}

std::vector<std::string> DisplayList::lines() const {
  LineWriter writer;
  replay(writer);
  return std::move(writer.lines);
}

}  // namespace vk
