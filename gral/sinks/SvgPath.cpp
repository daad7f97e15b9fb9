#include "gral/sinks/SvgPath.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "gral/sinks/SvgMarkup.h"

namespace vk {
bool SvgPath::Line::crosses(const Place& place) const {
  const auto inside = [](long a, long b, long value) {
    return std::min(a, b) < value && value < std::max(a, b);
  };
  if (from.x == to.x) return place.x == from.x && inside(from.y, to.y, place.y);
  return from.y == to.y && place.y == from.y && inside(from.x, to.x, place.x);
}

void SvgPath::second(long number) {
  if (number >= 0) text_ += ' ';
  svgAppend(text_, number);
}

/// The first number of a command, whose letter is left out where it repeats the one before.
void SvgPath::command(char name, long number) {
  if (name == command_) return second(number);
  text_ += name;
  svgAppend(text_, number);
  command_ = name;
}

void SvgPath::moveTo(const Place& place) {
  if (text_.empty()) {
    command('M', place.x);
    second(place.y);
  } else {
    command('m', place.x - pen_.x);
    second(place.y - pen_.y);
    command_ = 'l';
  }
  pen_ = place;
}

void SvgPath::lineTo(const Place& place) {
  if (place.y == pen_.y) {
    command('h', place.x - pen_.x);
  } else if (place.x == pen_.x) {
    command('v', place.y - pen_.y);
  } else {
    command('l', place.x - pen_.x);
    second(place.y - pen_.y);
  }
  pen_ = place;
}

/// At the cap of a bar, a way along what is drawn anyhow is shorter than a move, and a way back after one forward
/// needs no blank. Elsewhere no line is drawn twice: some viewers make the edges of such lines darker.
void SvgPath::draw(const Line& line) {
  const bool begun = !text_.empty();
  if (begun && line.crosses(pen_)) {
    lineTo(std::max(line.from, line.to));
  } else if (begun && last_.crosses(line.from)) {
    lineTo(line.from);
  } else if (!begun || (pen_ != line.from && pen_ != line.to)) {
    moveTo(line.from);
  }
  lineTo(pen_ == line.from ? line.to : line.from);
  last_ = line;
}

void SvgPath::drawWaiting() {
  if (waiting_) draw(*waiting_);
  waiting_.reset();
}

void SvgPath::line(const TwipPoint& from, const TwipPoint& to, bool dashed) {
  const Line next{{std::lround(from.x), std::lround(from.y)}, {std::lround(to.x), std::lround(to.y)}};
  if (dashed) {
    if (text_.empty() || pen_ != next.from) moveTo(next.from);
    lineTo(next.to);
  } else if (waiting_ && next.crosses(waiting_->from)) {
    const auto [first, last] = std::minmax(next.from, next.to);
    draw({first, last});
  } else {
    drawWaiting();
    waiting_ = next;
  }
}

std::string SvgPath::take() {
  drawWaiting();
  command_ = 0;
  return std::exchange(text_, {});
}

void SvgPath::join(std::span<const PixelPoint> points, bool closed) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Place place{std::lround(points[i].x * twipsPerPixel_), std::lround(points[i].y * twipsPerPixel_)};
    i == 0 ? moveTo(place) : lineTo(place);
  }
  if (closed) text_ += 'z';
}

}  // namespace vk
