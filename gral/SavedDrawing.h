#pragma once

#include "gral/Device.h"

namespace vk {

/// Puts back the colours, styles and font size of a device that a figure changes, at the end of its life.
class SavedDrawing {
 public:
  explicit SavedDrawing(Device& device)
      : device_(device),
        fillStyle_(device.FillStyle()),
        drawStyle_(device.DrawStyle()),
        fillColor_(device.FillColor()),
        foreColor_(device.ForeColor()),
        fontSize_(device.FontSize()) {}
  // NOLINTNEXTLINE(bugprone-exception-escape): the device takes what it had.
  ~SavedDrawing() {
    device_.setDrawStyle(drawStyle_);
    device_.setFillStyle(fillStyle_);
    device_.setFillColor(fillColor_);
    device_.setForeColor(foreColor_);
    device_.setFontSize(fontSize_);
  }
  SavedDrawing(const SavedDrawing&) = delete;
  SavedDrawing& operator=(const SavedDrawing&) = delete;

 private:
  Device& device_;
  Int16 fillStyle_, drawStyle_;
  Colour fillColor_, foreColor_;
  double fontSize_;
};

}  // namespace vk
