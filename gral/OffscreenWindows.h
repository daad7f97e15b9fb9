#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "gral/PlotWindows.h"

namespace vk {

/// Plot windows without a screen: each figure is drawn on a device that `make` gives, and nobody clicks.
class OffscreenWindows : public PlotWindows {
 public:
  explicit OffscreenWindows(std::function<std::unique_ptr<Device>()> make) : make_(std::move(make)) {}

  PlotWindow& create() override {
    windows_.push_back(std::make_unique<Window>(make_()));
    return *windows_.back();
  }
  PlotWindow* active() override { return windows_.empty() ? nullptr : windows_.back().get(); }
  int made() const override { return static_cast<int>(windows_.size()); }
  void closeSince(int made) override {
    while (this->made() > made) windows_.pop_back();
  }
  void closeAll() override { windows_.clear(); }

 private:
  class Window : public PlotWindow {
   public:
    explicit Window(std::unique_ptr<Device> device) : device_(std::move(device)) {}
    Device& device() override { return *device_; }
    void setClickRoutine(std::function<void()>) override {}
    void copyPicture() override { throw RuntimeError(kInvalidCall); }

   private:
    std::unique_ptr<Device> device_;
  };

  std::function<std::unique_ptr<Device>()> make_;
  std::vector<std::unique_ptr<Window>> windows_;
};

}  // namespace vk
