#pragma once

#include <string>

#include "grafile/FigureStyle.h"
#include "grafile/PlotBox.h"
#include "gral/AxisLabels.h"

/// The numbers and titles about the box of a plot.
namespace vk {

/// The axes of a box: their intervals and what is written at them. Without numbers an axis has no title either.
struct BoxAxes {
  int nx, ny;
  LogAxes logarithmic;
  bool numbersX = true;
  std::string titleX, titleY;
};

/// What is written; the titles tell the units of the numbers.
struct FrameTexts {
  AxisText x, y;
};

/// The numbers that can be read: each says what its tick is and stands clear of the next one.
FrameTexts frameTexts(GralCls& drawing, const PlotBox& box, const BoxAxes& axes);

/// Writes them to the left of the box and below it. A title that is longer than the page becomes smaller.
void drawTexts(GralCls& drawing, const PlotBox& box, const FrameTexts& texts);

/// Centimetres.
struct Margins {
  double left, right, bottom, top;
};

/// The room that the texts take outside of the box, with a gap to the edge of the page.
Margins roomFor(GralCls& drawing, const FrameTexts& texts);

}  // namespace vk
