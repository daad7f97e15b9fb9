#pragma once

#include "gral/GralCls.h"
#include "gral/NoPrinter.h"
#include "gral/NominalScreen.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/QtGraphics.h"
#include "ui/qt/devices/VectorDevice.h"

namespace vk {

/// Drawings on the devices of the toolkit, without a screen.
class DevicesFixture : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { graphics_ = std::make_unique<QtGraphics>(); }
  static void TearDownTestSuite() { graphics_.reset(); }
  static QtLetters& letters() { return graphics_->letters(); }

  /// Opens a drawing, calls `draw` with it and ends it.
  template <class Draw>
  static void drawOn(Device& device, Draw&& draw, double scale = 1, const char* orientation = "LANDSCAPE") {
    NoPrinter printer;
    NominalScreen screen;
    GralCls drawing(printer, screen);
    drawing.GralGrStr(device, orientation, scale);
    draw(drawing);
    drawing.GralGrEnd();
  }

 private:
  static inline std::unique_ptr<QtGraphics> graphics_;
};

}  // namespace vk
