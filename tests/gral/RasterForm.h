#pragma once

#include "BlockLetters.h"
#include "gral/SinkDevice.h"

namespace vk {

/// A form on a raster of its own.
class RasterForm : private BlockLetters, private RasterSink, public SinkDevice {
 public:
  /// Of so many nominal pixels.
  explicit RasterForm(int ratio, int width = 20, int height = 10)
      : RasterSink(ratio, static_cast<BlockLetters&>(*this)),
        SinkDevice(FormMetrics{0, 0, ratio}, static_cast<RasterSink&>(*this),
                   static_cast<BlockLetters&>(*this)) {
    setWidth(width * 15);
    setHeight(height * 15);
  }
  Picture Image() override { return raster().reduced(1); }
  using BlockLetters::asked;
  using RasterSink::onRefresh;
  using RasterSink::raster;
};

}  // namespace vk
