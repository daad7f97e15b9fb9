#pragma once

#include "batch/FigureMaker.h"
#include "ui/qt/devices/QtGraphics.h"

namespace vk {

/// Figures as images and vector files by the toolkit, without a screen.
class ToolkitFigures : public FigureMaker {
 public:
  FigureForm formFor(const std::string& fileName, const FigureOptions& options) override;

 private:
  QtGraphics graphics_;
};

}  // namespace vk
