#include "grafile/SpaceFigure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "grafile/GridLevels.h"
#include "grafile/NiceLimits.h"
#include "gral/AxisLabels.h"
#include "gral/SavedDrawing.h"

namespace vk {
namespace {

constexpr double kPageMargin = 2.5;                                   // cm, where labels have their place
constexpr double kSpaceTick = 0.5, kLabelGap = 0.3, kTitleGap = 0.6;  // cm
constexpr double kLeastPoints = 8, kMostPoints = 14, kPointsPerCm = 1.4, kTitlePointsPerLabel = 1.15;
constexpr double kCmOfPoint = 2.54 / 72, kCapitalHeight = 0.75;
constexpr int kHeightIntervals = 5, kMostIntervals = 6;

double lengthOf(const UsrPoint& way) {
  return std::hypot(way.x, way.y);
}

double across(const UsrPoint& a, const UsrPoint& b) {
  return a.x * b.y - a.y * b.x;
}

double dot(const UsrPoint& a, const UsrPoint& b) {
  return a.x * b.x + a.y * b.y;
}

float single(double value) {
  return static_cast<float>(value);
}

/// Hue, saturation and brightness as the drawing library takes them: 1..3.
Array<float> hsbOf(Colour colour) {
  const double r = colour.red() / 255.0, g = colour.green() / 255.0, b = colour.blue() / 255.0;
  const double high = std::max({r, g, b}), low = std::min({r, g, b}), span = high - low;
  double hue = 0;
  if (span > 0) {
    hue = high == r ? (g - b) / span : high == g ? 2 + (b - r) / span : 4 + (r - g) / span;
    hue = hue < 0 ? hue + 6 : hue;
  }
  const double brightness = (high + low) / 2;
  const double room = 1 - std::abs(high + low - 1);
  Array<float> hsb(3);
  hsb[1] = single(hue / 6);
  hsb[2] = single(room > 0 ? span / room : 0);
  hsb[3] = single(brightness);
  return hsb;
}

/// The ends of a side in cm, with room for labels where it is that of the page.
std::pair<double, double> roomOf(const PlotSide& side, double page) {
  const double low = std::min(side.fromCm, side.toCm), high = std::max(side.fromCm, side.toCm);
  const double margin = low == 0 && high == page ? kPageMargin : 0;
  return {low + margin, high - margin};
}

/// A zonotope of three edges: the outline of a box.
bool isInOutline(const BoxProjection& box, const UsrPoint& point) {
  const UsrPoint centre = box.corner + 0.5 * box.xEdge + 0.5 * box.yEdge + 0.5 * box.zEdge;
  const std::array edges{box.xEdge, box.yEdge, box.zEdge};
  return std::ranges::all_of(edges, [&](const UsrPoint& edge) {
    double reach = 0;
    for (const UsrPoint& other : edges) reach += std::abs(across(edge, other)) / 2;
    return std::abs(across(edge, point - centre)) <= reach;
  });
}

}  // namespace

/// The ticks of an edge, as lengths from its beginning, with their labels.
struct SpaceFigure::Ticks {
  Array<float> at;           // 1..
  Array<std::string> texts;  // the same, from 0
  std::string title;
  double length;
};

struct SpaceFigure::Label {
  UsrPoint at;
  double place;  // begins there, is centred there, ends there
  int degrees;
  double points;
  std::string text;
  bool ofTick;
};

SpaceFigure::SpaceFigure(GralCls& drawing, const PlotBox& plot, const SpaceView& view, const Grid& grid)
    : drawing_(drawing), plot_(plot), view_(view), grid_(grid) {
  if (!(view.phi > 0 && view.phi < 180 && view.height > 0 && view.zFrom <= view.zTo)) {
    throw RuntimeError(kInvalidCall);
  }
  if (view.zFrom == view.zTo) {
    auto [low, high] = heightRange(grid);
    openRange(low, high);
    const double step = roundStepAbove(checked::finite(high - low) / kHeightIntervals);
    view_.zFrom = std::floor(low / step) * step;
    view_.zTo = std::ceil(high / step) * step;
  }
  place();
  labelPoints_ = std::clamp(kPointsPerCm * place_.Vx, kLeastPoints, kMostPoints);
  // The library keeps distances in user units from the box, which are to be centimetres.
  drawing.GralXMap(plot.x.fromCm, plot.x.toCm, plot.x.fromCm, plot.x.toCm);
  drawing.GralYMap(plot.y.fromCm, plot.y.toCm, plot.y.fromCm, plot.y.toCm);
}

SpaceFigure::~SpaceFigure() {
  drawing_.GralXMap(plot_.x.fromCm, plot_.x.toCm, plot_.x.from, plot_.x.to);
  drawing_.GralYMap(plot_.y.fromCm, plot_.y.toCm, plot_.y.from, plot_.y.to);
}

/// Finds the box that is as large as the plot box allows, in its middle.
void SpaceFigure::place() {
  const BoxProjection box({0, 0, view_.theta, view_.phi, 1, 1, view_.height});
  UsrPoint low = box.corner, high = box.corner;
  for (const UsrPoint& edge : {box.xEdge, box.yEdge, box.zEdge}) {
    low = low + UsrPoint{std::min(edge.x, 0.0), std::min(edge.y, 0.0)};
    high = high + UsrPoint{std::max(edge.x, 0.0), std::max(edge.y, 0.0)};
  }
  const auto [left, right] = roomOf(plot_.x, drawing_.XrLog);
  const auto [bottom, top] = roomOf(plot_.y, drawing_.YtLog);
  const double size = std::min((right - left) / (high.x - low.x), (top - bottom) / (high.y - low.y));
  if (!(size > 0)) throw RuntimeError(kInvalidCall);
  const UsrPoint middle = 0.5 * size * (low + high);
  place_ = {(left + right) / 2 - middle.x,
            (bottom + top) / 2 - middle.y,
            view_.theta,
            view_.phi,
            size,
            size,
            size * view_.height};
}

bool SpaceFigure::hidesRightly() const {
  // What lies on a line of sight is seen at one place; it points to the viewer, who looks down on the floor.
  constexpr double kRounding = 1E-6;
  const BoxProjection box(place_);
  const UsrPoint &ex = box.ex, &ey = box.ey, &ez = box.ez;
  const double up = across(ex, ey), sign = up < 0 ? -1 : 1;
  return sign * up > kRounding && sign * across(ey, ez) > -kRounding && sign * across(ez, ex) > -kRounding;
}

/// The view as the drawing library takes it: from Xoc to Vz.
std::array<float, 7> SpaceFigure::singles() const {
  return {single(place_.Xoc), single(place_.Yoc), single(place_.theta), single(place_.phi),
          single(place_.Vx),  single(place_.Vy),  single(place_.Vz)};
}

SpaceFigure::Ticks SpaceFigure::ticksOf(double from, double to, double length,
                                        const std::string& title) const {
  constexpr double kRounding = 1E-6, kEnough = std::numeric_limits<double>::infinity();
  const double step = roundStepAbove(checked::finite(to - from) / kMostIntervals);
  const double first = std::ceil(from / step - kRounding), last = std::floor(to / step + kRounding);
  const int intervals = toInt32(last - first);
  const auto plain = [&](double begin, double end) {
    Array<std::string> labels;
    double longest = 0;
    drawing_.Makescale(begin, end, labels, intervals, false, longest, false);
    return labels;
  };
  AxisText text = chooseLabels({first * step, last * step, intervals * 1.0, kEnough}, title, plain);
  Ticks ticks{Array<float>(intervals + 1), std::move(text.labels), std::move(text.title), length};
  for (int k = 0; k <= intervals; ++k) {
    ticks.at[k + 1] = single(((first + k) * step - from) / (to - from) * length);
  }
  return ticks;
}

/// Texts behind the ends of the ticks, and the title along the edge, clear of all of them.
void SpaceFigure::addLabels(std::vector<Label>& labels, const Ticks& ticks, const UsrPoint& begin,
                            const UsrPoint& edge, const UsrPoint& outward) const {
  constexpr double kSideways = 0.4, kUpright = 91;
  const double side = across(edge, outward);
  if (side == 0) return;
  const UsrPoint direction = (1 / lengthOf(outward)) * outward;
  const double place = std::abs(direction.x) < kSideways ? 1 : direction.x > 0 ? 0 : 2;
  const UsrPoint clear = begin + kSpaceTick * outward + kLabelGap * direction;
  const UsrPoint normal = (std::copysign(1, side) / lengthOf(edge)) * UsrPoint{-edge.y, edge.x};
  double reach = 0;
  for (int k = 1; k <= ticks.at.upper(); ++k) {
    const double share = static_cast<double>(ticks.at[k]) / ticks.length;
    labels.push_back({clear + share * edge, place, 0, labelPoints_, ticks.texts[k - 1], true});
    for (const UsrPoint& corner : cornersOf(labels.back()))
      reach = std::max(reach, dot(normal, corner - begin));
  }
  double slope = std::atan2(edge.y, edge.x) / BoxProjection::kRadians;
  if (slope > kUpright) slope -= 180;
  if (slope < kUpright - 180) slope += 180;
  labels.push_back({begin + 0.5 * edge + (reach + kTitleGap) * normal, 1, toInt32(slope),
                    kTitlePointsPerLabel * labelPoints_, ticks.title, false});
}

/// The corners of a text that is not turned.
std::array<UsrPoint, 4> SpaceFigure::cornersOf(const Label& label) const {
  const double width = drawing_.GralTextExtent(label.points, label.text).width,
               height = kCapitalHeight * label.points * kCmOfPoint;
  const UsrPoint low = label.at - UsrPoint{width * label.place / 2, height / 2};
  return {low, low + UsrPoint{width, 0}, low + UsrPoint{0, height}, low + UsrPoint{width, height}};
}

/// Neither two labels of ticks have anything in common, nor one of them and the box.
bool SpaceFigure::areClear(const std::vector<Label>& labels) const {
  const BoxProjection box(place_);
  std::vector<std::array<UsrPoint, 4>> areas;
  for (const Label& label : labels) {
    if (!label.ofTick || label.text.empty()) continue;
    const auto area = cornersOf(label);
    const auto meets = [&](const std::array<UsrPoint, 4>& other) {
      return area.front().x < other.back().x && other.front().x < area.back().x &&
             area.front().y < other.back().y && other.front().y < area.back().y;
    };
    if (std::ranges::any_of(area, [&](const UsrPoint& corner) { return isInOutline(box, corner); }))
      return false;
    if (std::ranges::any_of(areas, meets)) return false;
    areas.push_back(area);
  }
  return true;
}

void SpaceFigure::outline(const UsrPoint& corner, const UsrPoint& edge1, const UsrPoint& edge2) const {
  const UsrPoint opposite = corner + edge1 + edge2;
  for (const UsrPoint& end : {corner, opposite}) {
    for (const UsrPoint& middle : {corner + edge1, corner + edge2}) {
      drawing_.GralLine(end.x, end.y, middle.x, middle.y);
    }
  }
}

bool SpaceFigure::drawFrame(bool greyWalls) {
  const double halfX = view_.columns ? (grid_.x[2] - grid_.x[1]) / 2 : 0;
  const double halfY = view_.columns ? (grid_.y[2] - grid_.y[1]) / 2 : 0;
  const Ticks x = ticksOf(grid_.x[1] - halfX, grid_.x[grid_.nx()] + halfX, place_.Vx, grid_.titleX);
  const Ticks y = ticksOf(grid_.y[1] - halfY, grid_.y[grid_.ny()] + halfY, place_.Vy, grid_.titleY);
  const Ticks z = ticksOf(view_.zFrom, view_.zTo, place_.Vz, grid_.titleZ);
  const auto count = [](const Ticks& ticks) { return Int16(ticks.at.upper()); };
  // The texts of the library do not follow the scale of the drawing: it draws the lines.
  Array<std::string> sx(count(x)), sy(count(y)), sz(count(z));
  const auto [Xoc, Yoc, theta, phi, Vx, Vy, Vz] = singles();
  if (greyWalls) {
    drawing_.Frame3D(Xoc, Yoc, theta, phi, Vx, Vy, Vz, x.at, y.at, z.at, count(x), count(y), count(z), sx, sy,
                     sz, count(x), count(y), count(z), false, true, false, Array<float>(3));
  } else {
    drawing_.GralFrame3d(Xoc, Yoc, theta, phi, Vx, Vy, Vz, x.at, y.at, z.at, count(x), count(y), count(z), sx,
                         sy, sz, count(x), count(y), count(z), false);
  }
  const BoxProjection box(place_);
  const UsrPoint &corner = box.corner, &ex = box.xEdge, &ey = box.yEdge, &ez = box.zEdge;
  // Ticks need not stand at the ends of the edges.
  outline(corner, ex, ey);
  outline(corner, ex, ez);
  outline(corner, ey, ez);
  std::vector<Label> labels;
  addLabels(labels, x, corner + ey, ex, -1 * box.ez);
  addLabels(labels, y, corner + ez, ey, -1 * box.ex);
  addLabels(labels, z, corner + ex, ez, -1 * box.ey);
  for (const Label& label : labels) {
    drawing_.GralWPrint(label.at.x, label.at.y, label.place, label.degrees, label.points, label.text);
  }
  return areClear(labels);
}

/// The values as heights above the floor.
Array2<float> SpaceFigure::heights() const {
  Array2<float> result(grid_.nx(), grid_.ny());
  const double scale = checked::divide(place_.Vz, view_.zTo - view_.zFrom);
  for (int j = 1; j <= grid_.ny(); ++j) {
    for (int i = 1; i <= grid_.nx(); ++i) result(i, j) = toSingle((grid_.z(i, j) - view_.zFrom) * scale);
  }
  return result;
}

void SpaceFigure::drawSurface(int style, const std::vector<double>& levels) {
  const bool bands = style == kBands || style == kShadedBands, lines = style == kLevelLines;
  const bool grey = style == kGreyShades || style == kColourShades || style == kShadedBands || lines;
  const double scale = checked::divide(place_.Vz, view_.zTo - view_.zFrom);
  std::vector<float> values;
  if (bands || lines) {
    for (const double level : levels) values.push_back(toSingle((level - view_.zFrom) * scale));
  }
  // A mesh hides what is behind it as a surface with a single band in white does.
  if (style == kWires) values.push_back(std::numeric_limits<float>::max());
  const int n = static_cast<int>(values.size()), colours = n == 0 || lines ? n : n + 1;
  Array<float> level(n);
  std::ranges::copy(values, level.span(1, n).begin());
  Array2<float> hsb(colours, 3);
  for (int k = 1; k <= colours; ++k) {
    const Array<float> colour = hsbOf(style == kWires ? kWhite : levelColour(k, colours, kColours, kBlack));
    for (int part = 1; part <= 3; ++part) hsb(k, part) = colour[part];
  }
  const Array<float> shaded = hsbOf(drawing_.GralDev->ForeColor());
  const SavedDrawing saved(*drawing_.GralDev);
  // On shades of its own colour the mesh would not be seen.
  if (style == kColourShades) drawing_.GralColor(kBlack);
  const auto [Xoc, Yoc, theta, phi, Vx, Vy, Vz] = singles();
  drawing_.Surf3D(Xoc, Yoc, theta, phi, Vx, Vy, Vz, heights(), grid_.nx(), grid_.ny(), grey,
                  style == kColourShades, shaded, level, n, hsb, colours);
}

void SpaceFigure::drawColumns(bool grey) {
  const auto [Xoc, Yoc, theta, phi, Vx, Vy, Vz] = singles();
  drawing_.GralLego3d(Xoc, Yoc, theta, phi, Vx, Vy, Vz, heights(), grid_.nx(), grid_.ny(), grey, false);
}

}  // namespace vk
