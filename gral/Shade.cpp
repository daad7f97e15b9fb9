#include "gral/Shade.h"

#include <cmath>

#include "base/CheckedMath.h"
#include "base/Rounding.h"

namespace vk {
namespace {

constexpr int kFull = 255;
/// The nearest singles.
constexpr double kSixth = 1.0F / 6, kHalf = 0.5, kTwoThirds = 2.0F / 3;
constexpr double kThirdOfTurn = 1.0 / 3;

double withoutWholePart(double value) {
  return value - std::floor(value);
}

/// |value|, without its whole part when it is above 1.
double unitPart(double value) {
  const double size = std::abs(value);
  return size > 1 ? withoutWholePart(size) : size;
}

/// One channel of a pure hue.
int HueChannel(double t) {
  t = unitPart(t);
  if (t < kSixth) return toInt32(t * 6 * kFull);
  if (t <= kHalf) return kFull;
  if (t <= kTwoThirds) return toInt32((kTwoThirds - t) * 6 * kFull);
  return 0;
}

int withBrightness(int c, double l) {
  if (l <= kHalf) return toInt32(2 * (l * c));
  return c < kFull ? toInt32((l - kHalf) * ((kFull - c) / kHalf) + c) : c;
}

}  // namespace

Colour HsbToRgb(double h, double s, double b) {
  const double hue = withoutWholePart(std::abs(h));
  const double l = unitPart(b), saturation = unitPart(s);
  const double M = kFull * l;
  const auto channel = [&](double t) {
    const int c = withBrightness(HueChannel(t), l);
    return toInt32(M + saturation * (c - M));
  };
  return Colour::fromChannels(channel(hue + kThirdOfTurn), channel(hue), channel(hue + 2 * kThirdOfTurn));
}

double grayOf(double share) {
  return kFull * std::sqrt(checked::sqrt(share));
}

double brightnessOf(double gray) {
  constexpr double kTwiceTheShades = 512;
  return gray / kTwiceTheShades;
}

Colour faceColor(double gray, bool coloured, const Array<float>& hs) {
  if (coloured) return HsbToRgb(hs[1], hs[2], brightnessOf(gray));
  const int channel = toInt32(gray);
  return Colour::fromChannels(channel, channel, channel);
}

}  // namespace vk
