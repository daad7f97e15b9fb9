#include "gral/AxisLabels.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Text.h"

namespace vk {
namespace {

/// Of a step, by which a label may differ from its tick.
constexpr double kTolerance = 0.01;
/// The first number with more than seven digits before the point.
constexpr double kLongNumber = 1E7;
constexpr double kLeastGap = 0.5;  // characters

/// Labels and the values that they stand for.
class Labelling {
 public:
  Labelling(Array<std::string> labels, double from, double step, double room)
      : labels_(std::move(labels)), from_(from), step_(step), room_(room) {}

  bool isUseful() const { return isTrue(1) && isShort() && isClear(1); }
  /// Nothing is wrong but that the labels stand too close.
  bool isOnlyCrowded() const { return isTrue(1) && isShort(); }
  const Array<std::string>& labels() const { return labels_; }
  /// The first label and every second, third, ... one, as many as are true and stand clear.
  Array<std::string> thinned() const;

 private:
  double value(int k) const { return scanNumber(labels_[k]); }
  bool isTrue(int every) const;
  bool isShort() const;
  bool isClear(int every) const;

  Array<std::string> labels_;
  double from_, step_, room_;
};

/// Each label of those that are left is its tick's value, and another one than the label before it.
bool Labelling::isTrue(int every) const {
  for (int k = 0; k <= labels_.upper(); k += every) {
    const double off = std::abs(value(k) - (from_ + k * step_));
    if (!(off <= kTolerance * std::abs(every * step_))) return false;
    if (k > 0 && trim(labels_[k]) == trim(labels_[k - every])) return false;
  }
  return true;
}

bool Labelling::isShort() const {
  for (int k = 0; k <= labels_.upper(); ++k) {
    if (std::abs(value(k)) >= kLongNumber) return false;
  }
  return true;
}

bool Labelling::isClear(int every) const {
  for (int k = every; k <= labels_.upper(); k += every) {
    const double halves = (length(labels_[k - every]) + length(labels_[k])) / 2.0;
    if (every * room_ - halves < kLeastGap) return false;
  }
  return true;
}

Array<std::string> Labelling::thinned() const {
  int every = 2;
  while (every <= labels_.upper() && !(isClear(every) && isTrue(every))) ++every;
  Array<std::string> result = labels_;
  for (int k = 0; k <= result.upper(); ++k) {
    if (k % every != 0) result[k].clear();
  }
  return result;
}

/// The multiple of 3 whose power of ten brings a number into 1 <= v < 1000.
int thousandsOf(double value) {
  constexpr int kDigits = 15;
  const int exponent = decimalDigits(value, kDigits).exponent - 1;
  return 3 * static_cast<int>(std::floor(exponent / 3.0));
}

/// The value divided by a power of ten; a negative one multiplies, so that the factor is exact.
double dividedBy(double value, int exponent) {
  const double factor = std::pow(10.0, std::abs(exponent));
  return exponent < 0 ? value * factor : value / factor;
}

std::string behind(std::string_view title, const std::string& addition) {
  const std::string start = trim(title);
  return start.empty() ? addition : start + " " + addition;
}

std::string withUnit(std::string_view title, int exponent) {
  return behind(title, "(10^{" + generalText(exponent) + "})");
}

class Choice {
 public:
  Choice(const LabelledAxis& axis, const PlainLabels& plain) : axis_(axis), plain_(plain) {}

  AxisText textFor(std::string_view title) const {
    const Labelling plain = labelling(axis_.from, axis_.to);
    if (plain.isUseful()) return {plain.labels(), std::string(title)};
    if (const auto text = divided(axis_.from, axis_.to, title, Crowded::kRefused)) return *text;
    if (plain.isOnlyCrowded()) return {plain.thinned(), std::string(title)};
    if (const auto text = differences(title, Crowded::kRefused)) return *text;
    if (const auto text = divided(axis_.from, axis_.to, title, Crowded::kThinned)) return *text;
    if (const auto text = differences(title, Crowded::kThinned)) return *text;
    return {plain.thinned(), std::string(title)};
  }

 private:
  /// What happens to labels that are true, but stand too close.
  enum class Crowded { kRefused, kThinned };

  Labelling labelling(double from, double to) const {
    return {plain_(from, to), from, (to - from) / axis_.intervals, axis_.room};
  }

  /// Useful labels between two values; nothing when they are not, or cannot be made.
  std::optional<AxisText> useful(double from, double to, const std::string& title, Crowded crowded) const {
    std::optional<AxisText> text;
    guard([&] {
      const Labelling made = labelling(from, to);
      if (made.isUseful()) {
        text = AxisText{made.labels(), title};
      } else if (crowded == Crowded::kThinned && made.isOnlyCrowded()) {
        text = AxisText{made.thinned(), title};
      }
    });
    return text;
  }

  std::optional<AxisText> divided(double from, double to, std::string_view title, Crowded crowded) const {
    const double largest = std::max(std::abs(from), std::abs(to));
    const int n = largest == 0 ? 0 : thousandsOf(largest);
    if (n == 0) return std::nullopt;
    return useful(dividedBy(from, n), dividedBy(to, n), withUnit(title, n), crowded);
  }

  std::optional<AxisText> differences(std::string_view title, Crowded crowded) const {
    const double range = axis_.to - axis_.from;
    const std::string less = behind(title, "- " + generalText(axis_.from));
    if (auto text = useful(0, range, less, crowded)) return text;
    return divided(0, range, less, crowded);
  }

  const LabelledAxis& axis_;
  const PlainLabels& plain_;
};

}  // namespace

AxisText chooseLabels(const LabelledAxis& axis, std::string_view title, const PlainLabels& plain) {
  return Choice(axis, plain).textFor(title);
}

}  // namespace vk
