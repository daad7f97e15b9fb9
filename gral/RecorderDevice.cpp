#include "gral/RecorderDevice.h"

namespace vk {

void RecorderDevice::forget() {
  recorded_.reset();
  forgetAnnounced();
}

void RecorderDevice::PaintPicture(const Picture& picture, double x, double y) {
  requirePrinter();
  recorded_.picture(picture, x, y);
}

void RecorderDevice::EndDoc() {
  requirePrinter();
  ++documents_;
}

}  // namespace vk
