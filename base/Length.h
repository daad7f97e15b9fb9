#pragma once

#include <compare>

/// Lengths that know their unit: those of one unit do not mix with those of another, and a length becomes one of
/// another unit by a conversion with a name.
namespace vk {

namespace unit {

struct Twip {};        ///< 1440 to the inch
struct Pixel {};       ///< of a screen, nominally 15 twips, or of a device
struct Point {};       ///< 72 to the inch: sizes of letters
struct Centimetre {};  ///< sizes of pages

}  // namespace unit

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kCmPerInch = 2.54;
/// Sizes of marks and ticks are told in mm, places on the page in cm.
inline constexpr double kMmPerCm = 10;
/// A nominal pixel has 15 twips on every screen, however fine its own pixels are.
inline constexpr double kNominalTwipsPerPixel = 15;

/// A length in a unit, which is made of a plain number and gives it back by name only.
template <class Unit>
class Length {
 public:
  constexpr Length() = default;
  constexpr explicit Length(double value) : value_(value) {}
  constexpr double value() const { return value_; }

  friend constexpr auto operator<=>(Length, Length) = default;
  friend constexpr Length operator+(Length a, Length b) { return Length(a.value_ + b.value_); }
  friend constexpr Length operator-(Length a, Length b) { return Length(a.value_ - b.value_); }
  friend constexpr Length operator*(double factor, Length a) { return Length(factor * a.value_); }
  friend constexpr Length operator/(Length a, double divisor) { return Length(a.value_ / divisor); }
  /// How often the other fits in.
  friend constexpr double operator/(Length a, Length b) { return a.value_ / b.value_; }

 private:
  double value_ = 0;
};

using Twips = Length<unit::Twip>;
using PointSize = Length<unit::Point>;
using Centimetres = Length<unit::Centimetre>;

constexpr Twips toTwips(PointSize size) {
  return Twips(size.value() * kTwipsPerPoint);
}
constexpr PointSize toPoints(Twips length) {
  return PointSize(length.value() / kTwipsPerPoint);
}
constexpr Centimetres toCentimetres(Twips length) {
  return Centimetres(length.value() / kTwipsPerInch * kCmPerInch);
}

}  // namespace vk
