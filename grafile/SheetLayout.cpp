#include "grafile/SheetLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "base/Guard.h"
#include "base/Text.h"
#include "grafile/FrameTexts.h"
#include "grafile/NiceLimits.h"

namespace vk {
namespace {

constexpr FigureStyle kSheetStyle;
constexpr int kLookedAt = 200;  // places of a curve
constexpr double kLeastResidual = 3;
constexpr double kLowerShare = 0.28;  // of the height of both boxes
constexpr double kBetween = 0.7;      // cm between them
constexpr double kKeyPadding = 0.5;   // cm
constexpr double kKeyPitch = 1.1;     // in heights of a line
constexpr double kMostKeyShare = 0.5, kMostKeyWidth = 0.6;
constexpr int kLeastEntry = 8;  // characters

struct Range {
  double low = std::numeric_limits<double>::infinity(), high = -low;
  void add(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  bool isEmpty() const { return low > high; }
};

struct Place {
  double x, y;
};

/// What a sheet shows, as places in user coordinates.
class Shown {
 public:
  explicit Shown(const PlotSheet& sheet) {
    for (const SheetData& set : sheet.points) addPoints(set.data);
    Range range;
    for (const Place& place : places_) range.add(place.x);
    if (range.isEmpty()) range = {sheet.from, sheet.to};
    x = RoundRange(range.low, range.high);
    for (const SheetCurve& curve : sheet.curves) addCurve(curve);
    for (const SheetData& band : sheet.bands) addBand(band.data);
    for (const Place& place : places_) ofY.add(place.y);
    if (ofY.isEmpty()) ofY = {0, 0};
  }

  const std::vector<Place>& places() const { return places_; }

  RoundRange x;
  Range ofY;

 private:
  void add(double atX, double atY) {
    if (std::isfinite(atX) && std::isfinite(atY)) places_.push_back({atX, atY});
  }
  void addPoints(const DataSet& data);
  void addCurve(const SheetCurve& curve);
  void addBand(const DataSet& band);

  std::vector<Place> places_;
};

void Shown::addPoints(const DataSet& data) {
  for (int i = 1; i <= data.NumPnt; ++i) {
    const double px = data.Xpnt[i], py = data.Ypnt[i];
    for (const int sign : {-1, 0, 1}) {
      add(px, py + sign * data.ErrYpnt[i]);
      if (sign != 0 && data.kXpntErr != kFalse) add(px + sign * data.ErrXpnt[i], py);
    }
  }
}

void Shown::addCurve(const SheetCurve& curve) {
  std::vector<double> at;
  for (int i = 0; i <= kLookedAt; ++i) at.push_back(x.low + i * (x.high - x.low) / kLookedAt);
  const std::vector<double> values = curve.values(at);
  for (std::size_t i = 0; i < at.size(); ++i) add(at[i], values[i]);
}

void Shown::addBand(const DataSet& band) {
  for (int i = 1; i <= band.NumPnt; ++i) {
    add(band.Xpnt[i], band.Ypnt[i]);
    add(band.Xpnt[i], band.ErrYpnt[i]);
  }
}

/// A rectangle in cm.
struct Rectangle {
  double left, bottom, width, height;
  bool holds(double x, double y) const {
    constexpr double kRounding = 0.01;
    return x >= left - kRounding && x <= left + width + kRounding && y >= bottom - kRounding &&
           y <= bottom + height + kRounding;
  }
};

double onPage(const PlotSide& side, double user) {
  return side.fromCm + (user - side.from) * (side.toCm - side.fromCm) / (side.to - side.from);
}
double inUser(const PlotSide& side, double cm) {
  return side.from + (cm - side.fromCm) * (side.to - side.from) / (side.toCm - side.fromCm);
}

/// Rounded so that graphic files tell them in few digits.
double roundCm(double cm) {
  constexpr double kParts = 100;
  return std::round(cm * kParts) / kParts;
}

class LayingOut {
 public:
  LayingOut(const PlotSheet& sheet, GralCls& drawing) : sheet_(sheet), drawing_(drawing), shown_(sheet) {}

  SheetLayout run() {
    layout_.x = shown_.x;
    layout_.y = RoundRange(shown_.ofY.low, shown_.ofY.high);
    if (sheet_.residuals) limitResiduals();
    placeBoxes();
    layout_.key = keyOf(sheet_);
    if (layout_.key.empty()) return layout_;
    measureKey();
    if (!takeFreeCorner()) raiseForKey();
    return layout_;
  }

 private:
  void limitResiduals();
  void placeBoxes();
  void measureKey();
  bool takeFreeCorner();
  void raiseForKey();
  void putKey(const Rectangle& key);
  bool hides(const Rectangle& key) const;
  Rectangle corner(bool right, bool top) const;
  Margins roomOf(const PlotBox& box, const RoundRange& y, bool numbersX, const std::string& titleY);

  const PlotSheet& sheet_;
  GralCls& drawing_;
  const Shown shown_;
  SheetLayout layout_;
  double keyWidth_ = 0, keyHeight_ = 0;  // cm
};

// Symmetrical, with few ticks, one of them at 0.
void LayingOut::limitResiduals() {
  constexpr std::array kEnds{4, 6, 8, 10, 20, 40, 60, 80, 100};
  double most = kLeastResidual;
  const DataSet& data = sheet_.residuals->data;
  for (int i = 1; i <= data.NumPnt; ++i) most = std::max(most, std::abs(data.Ypnt[i]) + data.ErrYpnt[i]);
  const auto end = std::ranges::lower_bound(kEnds, most);
  layout_.residuals = end == kEnds.end() ? RoundRange(-most, most) : RoundRange(-*end, *end);
  constexpr int kFew = 4;
  if (end != kEnds.end()) layout_.residuals.divisions = kFew;
}

Margins LayingOut::roomOf(const PlotBox& box, const RoundRange& y, bool numbersX, const std::string& titleY) {
  return roomFor(
      drawing_,
      frameTexts(drawing_, box, {layout_.x.divisions, y.divisions, {}, numbersX, sheet_.titleX, titleY}));
}

// The texts depend on the room that the boxes leave, and the boxes on that of the texts: the page is a first guess of
// them.
void LayingOut::placeBoxes() {
  const double width = static_cast<double>(drawing_.XrLog), height = static_cast<double>(drawing_.YtLog);
  const bool parted = sheet_.residuals.has_value();
  const auto side = [](double from, double to, const RoundRange& range) {
    return PlotSide{roundCm(from), roundCm(to), range.low, range.high};
  };
  const PlotSide wholeX = side(0, width, layout_.x);
  const Margins upper = roomOf({wholeX, side(0, height, layout_.y)}, layout_.y, !parted, sheet_.titleY);
  Margins room = upper;
  if (parted) {
    const Margins low = roomOf({wholeX, side(0, kLowerShare * height, layout_.residuals)}, layout_.residuals,
                               true, kResidualTitle);
    room = {std::max(upper.left, low.left), std::max(upper.right, low.right), low.bottom, upper.top};
  }
  const double top = height - room.top, split = room.bottom + kLowerShare * (top - room.bottom);
  layout_.box.x = layout_.lower.x = side(room.left, width - room.right, layout_.x);
  layout_.box.y = side(parted ? split + kBetween : room.bottom, top, layout_.y);
  layout_.lower.y = side(room.bottom, split, layout_.residuals);
}

void LayingOut::measureKey() {
  const double line = kKeyPitch * drawing_.GralTextExtent(kSheetStyle.labelPoints, "").height;
  const double room = kMostKeyWidth * (layout_.box.x.toCm - layout_.box.x.fromCm);
  for (std::string& name : layout_.key) {
    while (keyWidth(drawing_, name) > room && length(name) > kLeastEntry)
      name = shortened(name, length(name) - 1);
    keyWidth_ = std::max(keyWidth_, keyWidth(drawing_, name));
  }
  keyHeight_ = line * static_cast<double>(layout_.key.size());
}

Rectangle LayingOut::corner(bool right, bool top) const {
  const PlotSide &x = layout_.box.x, &y = layout_.box.y;
  const double width = keyWidth_ + 2 * kKeyPadding, height = keyHeight_ + 2 * kKeyPadding;
  return {right ? x.toCm - width : x.fromCm, top ? y.toCm - height : y.fromCm, width, height};
}

bool LayingOut::hides(const Rectangle& key) const {
  return std::ranges::any_of(shown_.places(), [&](const Place& place) {
    return key.holds(onPage(layout_.box.x, place.x), onPage(layout_.box.y, place.y));
  });
}

bool LayingOut::takeFreeCorner() {
  for (const bool top : {true, false}) {
    for (const bool right : {true, false}) {
      if (hides(corner(right, top))) continue;
      putKey(corner(right, top));
      return true;
    }
  }
  return false;
}

void LayingOut::raiseForKey() {
  const double share = (keyHeight_ + 2 * kKeyPadding) / (layout_.box.y.toCm - layout_.box.y.fromCm);
  if (share < kMostKeyShare) {
    const double high = (shown_.ofY.high - share * layout_.y.low) / (1 - share);
    layout_.y = RoundRange(layout_.y.low, high);
    placeBoxes();
  }
  if (!takeFreeCorner()) putKey(corner(true, true));
}

void LayingOut::putKey(const Rectangle& key) {
  const double pitch = keyHeight_ / static_cast<double>(layout_.key.size());
  layout_.keyX = inUser(layout_.box.x, key.left + kKeyPadding);
  layout_.keyY = inUser(layout_.box.y, key.bottom + key.height - kKeyPadding - pitch / 2);
  layout_.keyStep = pitch / layout_.box.y.cmPerUnit();
}

}  // namespace

RoundRange::RoundRange(double from, double to) : low(from), high(to) {
  openRange(low, high);
  guard([&] { NiceLimits(low, high, divisions); });
}

std::vector<std::string> keyOf(const PlotSheet& sheet) {
  std::vector<std::string> names;
  const auto add = [&](const auto& sets) {
    for (const auto& set : sets) {
      if (!set.name.empty()) names.push_back(set.name);
    }
  };
  add(sheet.points);
  add(sheet.curves);
  add(sheet.bands);
  if (names.size() == 1) names.clear();
  return names;
}

SheetLayout layOut(const PlotSheet& sheet, GralCls& drawing) {
  return LayingOut(sheet, drawing).run();
}

}  // namespace vk
