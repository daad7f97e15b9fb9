#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "base/RuntimeError.h"
#include "gral/PlotWindows.h"
#include "gral/sinks/RecorderDevice.h"

namespace vk {

/// A recording form that shows a picture of two by one pixels.
class PictureForm : public RecorderDevice {
 public:
  using RecorderDevice::RecorderDevice;

 private:
  Picture image() override { return {2, 1, kNominalTwipsPerPixel, {0xFFFFFFFF, 0xFF000000}}; }
};

class RecordingPlotWindow : public PlotWindow {
 public:
  PictureForm form;
  std::function<void()> click;
  int copies = 0;
  int copyError = 0;  ///< run-time error that a copy raises

  Device& device() override { return form; }
  void setClickRoutine(std::function<void()> routine) override { click = std::move(routine); }
  void copyPicture() override {
    if (copyError != 0) throw RuntimeError(copyError);
    ++copies;
  }
};

/// Keeps all plot windows that were made.
class RecordingPlotWindows : public PlotWindows {
 public:
  std::vector<std::unique_ptr<RecordingPlotWindow>> windows;

  PlotWindow& create() override {
    windows.push_back(std::make_unique<RecordingPlotWindow>());
    return *windows.back();
  }
  PlotWindow* active() override { return windows.empty() ? nullptr : windows.back().get(); }
  int made() const override { return static_cast<int>(windows.size()); }
  void closeSince(int made) override {
    windows.resize(std::min(windows.size(), static_cast<std::size_t>(made)));
  }
  void closeAll() override { windows.clear(); }
};

}  // namespace vk
