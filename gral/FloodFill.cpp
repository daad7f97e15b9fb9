// Unit GralCls: areas filled up to a colour, and the print of a form.

#include <cmath>

#include "base/Rounding.h"
#include "gral/DrawnBox.h"
#include "gral/Plotting.h"

namespace vk {

void GralCls::GralFill(double x, double y, Colour LimitColor) {
  const PixelPlace start = drawnPixels(*GralDev).nearest(pixelOfUsr(x, y));
  GralDev->FloodFill(toInt32(start.x), toInt32(start.y), LimitColor);
}

void GralCls::GralPrintScreen() {
  const Int16 orientation = printer_.Orientation();
  printer_.setOrientation(Orientation);
  // QUIRK: a form larger than the sheet is not moved out of it to the left and the top.
  const double x = std::abs(printer_.Width() - GralDev->Width()) / 2;
  const double y = std::abs(printer_.Height() - GralDev->Height()) / 2;
  printer_.PaintPicture(GralDev->Image(), x, y);
  printer_.EndDoc();
  printer_.setOrientation(orientation);
}

}  // namespace vk
