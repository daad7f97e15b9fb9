#include "grafile/FineCurve.h"

#include <cmath>

namespace vk {
namespace {

constexpr int kEvenPlaces = 400;
constexpr int kMostHalvings = 6;
constexpr std::size_t kMostPlaces = 20000;  // a function of chance bends everywhere
constexpr double kSeenBend = 0.002;         // cm

/// A curve while it becomes finer: piece i lies between point i and the next, and is open while it is looked at more
/// closely.
class Refining {
 public:
  Refining(const CurveRange& range, FineCurve curve) : range_(range), curve_(std::move(curve)) {
    open_.assign(curve_.x.size() - 1, true);
  }

  /// Halves what bends; false where nothing does any more.
  bool halve(const CurveValues& values) {
    std::vector<double> middles;
    for (std::size_t i = 0; i < open_.size(); ++i) {
      if (open_[i]) middles.push_back(middle(i));
    }
    if (middles.empty() || curve_.x.size() + middles.size() > kMostPlaces) return false;
    insert(values(middles));
    return true;
  }
  FineCurve take() { return std::move(curve_); }

 private:
  double middle(std::size_t i) const { return curve_.x[i] + (curve_.x[i + 1] - curve_.x[i]) / 2; }
  std::vector<bool> bentPieces(const std::vector<double>& y) const;
  void insert(const std::vector<double>& y);
  bool bends(std::size_t i, double x, double y) const;

  CurveRange range_;
  FineCurve curve_;
  std::vector<bool> open_;
};

/// Which pieces bend, by the values in the middle of the open ones.
std::vector<bool> Refining::bentPieces(const std::vector<double>& y) const {
  std::vector<bool> bent(open_.size());
  std::size_t next = 0;
  for (std::size_t i = 0; i < open_.size(); ++i) {
    if (open_[i]) bent[i] = bends(i, middle(i), y[next++]);
  }
  return bent;
}

void Refining::insert(const std::vector<double>& y) {
  FineCurve finer;
  std::vector<bool> open;
  const auto add = [&](double atX, double atY, bool goesOn) {
    finer.x.push_back(atX);
    finer.y.push_back(atY);
    open.push_back(goesOn);
  };
  const std::vector<bool> bent = bentPieces(y);
  // The middle of a piece that turns both ways may lie on its line: the piece beside it bends.
  const auto nearBend = [&](std::size_t i) {
    return bent[i] || (i > 0 && bent[i - 1]) || (i + 1 < bent.size() && bent[i + 1]);
  };
  std::size_t next = 0;
  for (std::size_t i = 0; i < open_.size(); ++i) {
    const bool halved = open_[i] && nearBend(i);
    add(curve_.x[i], curve_.y[i], halved);
    if (halved) add(middle(i), y[next], true);
    if (open_[i]) ++next;
  }
  finer.x.push_back(curve_.x.back());
  finer.y.push_back(curve_.y.back());
  curve_ = std::move(finer);
  open_ = std::move(open);
}

/// The point (x, y) between two others lies beside their line, or the curve ends there.
bool Refining::bends(std::size_t i, double x, double y) const {
  const bool before = std::isfinite(curve_.y[i]), here = std::isfinite(y),
             behind = std::isfinite(curve_.y[i + 1]);
  if (!(before && here && behind)) return before || here || behind;
  const double width = range_.cmPerX * (curve_.x[i + 1] - curve_.x[i]);
  const double height = range_.cmPerY * (curve_.y[i + 1] - curve_.y[i]);
  const double across = range_.cmPerX * (x - curve_.x[i]), up = range_.cmPerY * (y - curve_.y[i]);
  return std::abs(width * up - height * across) > kSeenBend * std::hypot(width, height);
}

}  // namespace

FineCurve sampleFinely(const CurveRange& range, const CurveValues& values) {
  FineCurve even;
  for (int i = 0; i < kEvenPlaces; ++i)
    even.x.push_back(range.from + (range.to - range.from) * (i / (kEvenPlaces - 1.0)));
  even.y = values(even.x);
  Refining refining(range, std::move(even));
  for (int i = 0; i < kMostHalvings && refining.halve(values); ++i) {
  }
  return refining.take();
}

}  // namespace vk
