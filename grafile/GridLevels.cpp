#include "grafile/GridLevels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/CheckedMath.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "gral/ScaleLabels.h"

namespace vk {
namespace {

constexpr double kKeyGap = 0.6, kKeySample = 1, kKeyTextGap = 0.2, kKeyRow = 0.7;  // cm
constexpr double kMostKeyPoints = 12, kKeyPointsPerCm = 18;

/// Equally far apart for the eye, each lighter than the one before, and none too light for a line on white.
constexpr std::array kPalette{Colour::fromRgb(0x3B1F6B), Colour::fromRgb(0x1F5AA6), Colour::fromRgb(0x128A8A),
                              Colour::fromRgb(0x5FA638), Colour::fromRgb(0xD6A11E)};
constexpr int kLightestGrey = 170;

Colour between(Colour a, Colour b, double share) {
  const auto mix = [share](int from, int to) { return toInt32(from + share * (to - from)); };
  return Colour::fromChannels(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

/// The entries of the key, from the top of the box downward.
void drawLevelKey(GralCls& drawing, const PlotBox& box, const std::vector<double>& levels,
                  const Array<Colour>& colours) {
  const double right = std::max(box.x.fromCm, box.x.toCm), top = std::max(box.y.fromCm, box.y.toCm);
  const int n = colours.upper();
  const double row = std::min(kKeyRow, std::abs(box.y.toCm - box.y.fromCm) / n);
  const double points = std::min(kMostKeyPoints, kKeyPointsPerCm * row);
  const Colour before = drawing.GralDev->ForeColor();
  const double begin = drawing.xLog2Usr(right + kKeyGap);
  const double end = drawing.xLog2Usr(right + kKeyGap + kKeySample);
  std::vector<std::string> texts;
  int decimals = 0;
  for (const double level : levels) {
    texts.push_back(generalText(static_cast<float>(level)));
    decimals = std::max(decimals, decimalsOf(texts.back()));
  }
  for (int k = n; k >= 1; --k) {
    const double y = drawing.yLog2Usr(top - (n - k + 0.5) * row);
    Array<double> ofX(2), ofY(2);
    ofX[1] = begin;
    ofX[2] = end;
    ofY[1] = ofY[2] = y;
    drawing.GralColor(colours[k]);
    drawing.GralDraw(ofX, ofY, 2);
    drawing.GralColor(before);
    drawing.GralWPrint(drawing.xLog2Usr(right + kKeyGap + kKeySample + kKeyTextGap), y, 0, 0, points,
                       fillDecimals(texts[static_cast<std::size_t>(k) - 1], decimals));
  }
}

}  // namespace

double roundStepAbove(double value) {
  constexpr double kRounding = 1E-9;
  const double power = std::pow(10, std::floor(std::log10(value)));
  for (const double digit : {1, 2, 5}) {
    if (digit * power >= value * (1 - kRounding)) return digit * power;
  }
  return checked::finite(10 * power);
}

HeightRange heightRange(const Grid& grid) {
  HeightRange range{grid.z(1, 1), grid.z(1, 1)};
  for (int j = 1; j <= grid.ny(); ++j) {
    for (int i = 1; i <= grid.nx(); ++i) {
      range.low = std::min(range.low, grid.z(i, j));
      range.high = std::max(range.high, grid.z(i, j));
    }
  }
  return range;
}

std::vector<double> roundLevels(const HeightRange& range, int most) {
  std::vector<double> levels;
  if (!(range.high > range.low)) return levels;
  const double step = roundStepAbove(checked::finite(range.high - range.low) / (most + 1));
  const double first = std::floor(range.low / step) + 1;
  for (int i = 0; i <= most; ++i) {
    const double level = (first + i) * step;
    if (level > range.low && level < range.high) levels.push_back(level);
  }
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  return levels;
}

Colour levelColour(int k, int n, int colouring, Colour present) {
  const double share = n > 1 ? (k - 1.0) / (n - 1) : 0;
  if (colouring == kGreys)
    return between(kBlack, Colour::fromChannels(kLightestGrey, kLightestGrey, kLightestGrey), share);
  if (colouring != kColours) return present;
  const double place = share * (kPalette.size() - 1);
  const auto lower = std::min(static_cast<std::size_t>(place), kPalette.size() - 2);
  return between(kPalette[lower], kPalette[lower + 1], place - static_cast<double>(lower));
}

bool drawContours(GralCls& drawing, const PlotBox& box, const Grid& grid, const std::vector<double>& levels,
                  int colouring, bool withKey) {
  const HeightRange range = heightRange(grid);
  const bool seen = std::ranges::any_of(levels, [&](double z) { return z > range.low && z < range.high; });
  if (!seen) return false;
  // Singles tell levels and values apart in any range once this is the unit.
  const double span = checked::finite(range.high - range.low);
  const auto inUnits = [&](double z) { return toSingle((z - range.low) / span); };
  Array2<float> z(grid.nx(), grid.ny());
  for (int j = 1; j <= grid.ny(); ++j) {
    for (int i = 1; i <= grid.nx(); ++i) z(i, j) = inUnits(grid.z(i, j));
  }
  const int n = static_cast<int>(levels.size());
  Array<float> values(n);
  Array<Colour> colours(n);
  for (int k = 1; k <= n; ++k) {
    values[k] = inUnits(levels[static_cast<std::size_t>(k) - 1]);
    colours[k] = levelColour(k, n, colouring, drawing.GralDev->ForeColor());
  }
  drawing.GralContour(grid.x[1], grid.x[grid.nx()], grid.y[1], grid.y[grid.ny()], z, grid.nx(), grid.ny(),
                      values, colours, n);
  if (withKey) drawLevelKey(drawing, box, levels, colours);
  return true;
}

}  // namespace vk
