#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "gral/NoPrinter.h"
#include "gral/Plotting.h"
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
    GralCls drawing(printer);
    drawing.GralGrStr(device, orientation, scale);
    draw(drawing);
    drawing.GralGrEnd();
  }

 private:
  static inline std::unique_ptr<QtGraphics> graphics_;
};

/// A form with a filled ring: a box inside a box, the space between them red.
inline void drawFilledRing(GralCls& g) {
  g.GralBox(3, 12, 15, 4, 0);
  g.GralBox(6, 10, 12, 6, 0);
  g.GralFillStyle(kFillSolid);
  g.GralFillColor(Colour::fromBgr(0x0000FF));
  g.GralFill(4, 5, kBlack);
}

/// What its lines, 15 twips wide, leave of the ring, in square twips.
inline double ringArea() {
  const auto box = [](double width, double height, double margin) {
    constexpr double kPerCm = kTwipsPerInch / kCmPerInch;
    return (width * kPerCm + margin) * (height * kPerCm + margin);
  };
  return box(12, 8, -15) - box(6, 4, 15);
}

/// The elements 1, 2, ... of an array.
inline Array<double> arrayOf(std::initializer_list<double> values) {
  Array<double> result(static_cast<int>(values.size()));
  int i = 0;
  for (const double value : values) result[++i] = value;
  return result;
}

/// Something to draw, with its name.
struct Feature {
  const char* name;
  std::function<void(GralCls&)> draw;
};

}  // namespace vk
