#pragma once

#include "base/Colour.h"

namespace vk {

/// The measures of modern figures. Lengths on the page are those of its full scale, as texts have them.
struct FigureStyle {
  double labelPoints = 16;            ///< of numbers at the axes, and of the key
  double titlePoints = 17;            ///< of the titles of the axes
  double gap = 0.2;                   ///< cm between box, numbers, titles and the edge of the page
  double markRadius = 1.2;            ///< mm
  double framePen = 1, curvePen = 4;  ///< tenths of a mm
};

/// Colour, kind of mark (`GralMakeMark`) and kind of line (`GralPen`) of one set of a figure.
struct SetLook {
  Colour colour;
  int mark, line;
};

/// That of set 0, 1, 2, ...; they repeat. Colours by Okabe and Ito, which people with any kind of colour vision tell
/// apart, from dark to light, so that they stay in order on a printer without colours; marks and lines differ too.
SetLook lookOfSet(int set);

}  // namespace vk
