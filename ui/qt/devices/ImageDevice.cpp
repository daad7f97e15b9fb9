#include "ui/qt/devices/ImageDevice.h"

#include "base/RuntimeError.h"
#include "ui/qt/devices/PngFile.h"
#include "ui/qt/devices/QtPicture.h"

namespace vk {

ImageDevice::ImageDevice(QtLetters& letters, int pixelRatio, int shownRatio)
    : RasterSink(pixelRatio, letters),
      Device(FormMetrics{{0, 0}, pixelRatio}, *this, letters),
      pixelRatio_(pixelRatio),
      shownRatio_(shownRatio) {
  if (shownRatio < 1 || pixelRatio % shownRatio != 0) throw RuntimeError(kInvalidCall);
  Cls();
}

Picture ImageDevice::image() {
  Picture picture = raster().reduced(pixelRatio_ / shownRatio_);
  picture.twipsPerPixel = kNominalTwipsPerPixel / shownRatio_;
  return picture;
}

std::string ImageDevice::png() {
  return pngOf(image());
}

std::string pngOf(const Picture& picture) {
  return pngOf(imageOf(picture).copy(), kTwipsPerInch / picture.twipsPerPixel);
}

}  // namespace vk
