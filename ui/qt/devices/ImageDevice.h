#pragma once

#include "gral/RasterSink.h"
#include "gral/SinkDevice.h"
#include "ui/qt/devices/QtLetters.h"

namespace vk {

/// Gives a device parts of its own that are made before it.
struct ImageParts {
  RasterSink rasterSink_;
};

/// A form that is an image: its nominal pixels consist of `pixelRatio` x `pixelRatio` pixels, drawn without
/// smoothing, and it is shown with `shownRatio` x `shownRatio`, which divide them, through one smooth
/// reduction.
class ImageDevice : private ImageParts, public SinkDevice {
 public:
  /// The letters must outlive the device.
  explicit ImageDevice(QtLetters& letters, int pixelRatio = 4, int shownRatio = 2);

  /// What it shows, at its natural size.
  Picture Image() override;
  /// The same as a file of the PNG format.
  std::string png();

  const Raster& raster() const { return rasterSink_.raster(); }

 private:
  int pixelRatio_;
  int shownRatio_;
};

/// A picture as a file of the PNG format, with its natural size in it.
std::string pngOf(const Picture& picture);

}  // namespace vk
