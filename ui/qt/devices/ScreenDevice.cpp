#include "ui/qt/devices/ScreenDevice.h"

#include <algorithm>

#include "ui/qt/devices/VectorDevice.h"

namespace vk {
namespace {

/// So many pixels to a nominal one make letters look smooth after the reduction.
constexpr int kFinePixels = 4;

int pixelRatioFor(int screenRatio) {
  return screenRatio * std::max(2, kFinePixels / screenRatio);
}

}  // namespace

ScreenDevice::ScreenDevice(QtLetters& letters, int screenRatio)
    : ScreenParts(pixelRatioFor(screenRatio), letters),
      SinkDevice(FormMetrics{0, 0, pixelRatioFor(screenRatio)}, tee_, letters),
      screenRatio_(screenRatio),
      pixelRatio_(pixelRatioFor(screenRatio)),
      fonts_(letters) {
  Cls();
}

Picture ScreenDevice::Image() {
  Picture picture = raster().reduced(reduction());
  picture.twipsPerPixel = kNominalTwipsPerPixel / screenRatio_;
  return picture;
}

std::string ScreenDevice::svg() const {
  return svgOf(list_, pixelRatio_, fonts_);
}

// What was drawn before can no longer be seen.
void ScreenDevice::cleared() {
  list_.reset();
  SinkDevice::cleared();
}

void ScreenDevice::formChanged() {
  if (onFormChanged) onFormChanged();
}

void ScreenDevice::refreshed() {
  if (onRefresh) onRefresh();
}

}  // namespace vk
