#pragma once

#include "gral/Device.h"
#include "gral/sinks/RasterSink.h"
#include "ui/qt/devices/QtLetters.h"

namespace vk {

/// A form that is an image: its nominal pixels consist of `pixelRatio` x `pixelRatio` pixels, drawn without
/// smoothing, and it is shown with `shownRatio` x `shownRatio`, which divide them, through one smooth
/// reduction.
class ImageDevice : private RasterSink, public Device {
 public:
  /// The letters must outlive the device.
  explicit ImageDevice(QtLetters& letters, int pixelRatio = 4, int shownRatio = 2);

  /// What it shows as a file of the PNG format.
  std::string png();

  /// Its own pixels, before they are reduced to what is shown.
  const Raster& raster() const { return RasterSink::raster(); }

 private:
  Picture image() override;

  int pixelRatio_;
  int shownRatio_;
};

/// A picture as a file of the PNG format, with its natural size in it.
std::string pngOf(const Picture& picture);

}  // namespace vk
