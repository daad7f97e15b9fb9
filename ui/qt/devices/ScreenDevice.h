#pragma once

#include <functional>

#include "gral/Device.h"
#include "gral/sinks/DisplayList.h"
#include "gral/sinks/RasterSink.h"
#include "gral/sinks/TeeSink.h"
#include "ui/qt/devices/VectorDevice.h"

namespace vk {

/// Gives a device parts of its own that are made before it.
struct ScreenParts {
  RasterSink rasterSink_;
  DisplayList list_;
};

/// The surface of a window: an image of pixels finer than the screen's, and beside it the list of what was
/// drawn, for copies that are not made of pixels.
class ScreenDevice : private ScreenParts, private TeeSink, public Device {
 public:
  /// The screen has `screenRatio` x `screenRatio` pixels to a nominal one. The letters outlive the device.
  ScreenDevice(QtLetters& letters, int screenRatio);

  /// What the window is told: caption, place, size or visibility have changed; show what was drawn.
  std::function<void()> onFormChanged;
  std::function<void()> onRefresh;

  Raster& raster() { return rasterSink_.raster(); }
  /// Pixels of the raster to a nominal one, and to one of the screen.
  int pixelRatio() const { return pixelRatio_; }
  int reduction() const { return pixelRatio_ / screenRatio_; }
  int screenRatio() const { return screenRatio_; }

  /// The picture as a file of the SVG format and of the PDF format, with its caption as the title.
  std::string svg() const;
  std::string pdf() const;

 private:
  DrawingFiles files() const;
  FigureSheet sheet() const;
  void clear(const SheetSize& size, Colour background) override;
  void refresh() override;
  void formChanged() override;
  /// In the screen's pixels, with what it was drawn from.
  Picture image() override;

  int screenRatio_;
  int pixelRatio_;
  QtLetters& fonts_;
};

}  // namespace vk
