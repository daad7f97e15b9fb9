#pragma once

#include <algorithm>
#include <cmath>
#include <string>

#include "gral/Plotting.h"

/// The box of a plot, and what graphic files draw about it and in it.
namespace vk {

/// One side of the box: its two ends in cm on the page and in user coordinates.
struct PlotSide {
  double fromCm, toCm, from, to;
  double lower() const { return std::min(from, to); }
  double upper() const { return std::max(from, to); }
  double cmPerUnit() const { return std::abs((toCm - fromCm) / (to - from)); }
};

struct PlotBox {
  PlotSide x, y;
};

/// Which axes are logarithmic: their intervals are decades.
struct LogAxes {
  bool x, y;
};

/// The box with ticks inside on all four sides, at nx and ny intervals, and shorter ones between them: where an
/// interval can be parted by a round step, and at the multiples of a decade. Fewer than 1 interval is run-time error 5.
void drawFrame(GralCls& drawing, const PlotBox& box, int nx, int ny, LogAxes logarithmic);

/// A text centred above the box.
void drawTitle(GralCls& drawing, const PlotBox& box, const std::string& text);

/// An entry of a key: from the user point on a piece of line, where it is wanted, with the present mark in its middle,
/// and a text behind it. A mark without radius is left out.
void drawKey(GralCls& drawing, double x, double y, bool withLine, const std::string& text);

/// How far such an entry reaches to the right, in cm.
double keyWidth(GralCls& drawing, const std::string& text);

/// A light tint of a colour. Tints of dark colours are one and the same light grey on a printer without colours.
Colour lightTint(Colour colour);

}  // namespace vk
