#pragma once

#include "base/Array.h"
#include "gral/DeviceTypes.h"

/// Colours told by hue, and shades by the tilt of a face.
namespace vk {

/// The colour of a hue (0 red, 1/3 green, 2/3 blue, 1 red again), a saturation (0 grey, 1 full) and a
/// brightness (0 black, 0.5 the full colour, 1 white). Signs do not count, nor do whole turns of the hue and
/// whole parts above 1 of the others.
Colour HsbToRgb(double h, double s, double b);

/// The gray of a face by the share of its area that is left when it is seen from its side: 0 edge-on, 255
/// flat on. A negative share is run-time error 5.
double grayOf(double share);

/// The brightness of a colour under a gray of 0..255: the brightest stays just under the full colour.
double brightnessOf(double gray);

/// The colour of a face: this gray, or a colour of hue and saturation hs(1), hs(2) that is as bright.
Colour faceColor(double gray, bool coloured, const Array<float>& hs);

}  // namespace vk
