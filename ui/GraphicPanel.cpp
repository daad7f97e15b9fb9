#include "ui/GraphicPanel.h"

#include <algorithm>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Rounding.h"

namespace vk {
namespace {

constexpr float kScrollUnit = 10;
/// Number of the last picture behind the main window.
constexpr int kBackImageMax = 2;

}  // namespace

void GraphicPanel::open() {
  settings_.BackImageSaved = settings_.BackImage;
  figures_.GraphScaleSaved = figures_.GraphScale;
  figures_.LandscapeSaved = figures_.Landscape;
  for (std::size_t row = 0; row < scroll_.size(); ++row) {
    const int value = toInt16(figures_.GraphScale[row] * kScrollUnit);
    scroll_[row] = std::clamp(value, kScrollMin, kScrollMax);
    showScale(row);
  }
  option_ = figures_.Landscape ? 0 : 1;
}

void GraphicPanel::showScale(std::size_t row) {
  // QUIRK: the pattern has no zero rule, so a half reads ".5".
  values_[row] = FormatPattern(scroll_[row] / static_cast<double>(kScrollUnit), "##.0");
}

void GraphicPanel::scroll(int row, int value) {
  const auto index = static_cast<std::size_t>(row);
  scroll_[index] = std::clamp(value, kScrollMin, kScrollMax);
  figures_.GraphScale[index] = static_cast<float>(scroll_[index]) / kScrollUnit;
  showScale(index);
}

void GraphicPanel::stepPicture() {
  settings_.BackImage = settings_.BackImage >= kBackImageMax ? 0 : settings_.BackImage + 1;
}

void GraphicPanel::accept() {
  for (std::size_t row = 0; row < values_.size(); ++row) {
    figures_.GraphScale[row] = static_cast<float>(scanNumber(values_[row]));
  }
  figures_.Landscape = toFlag(option_ == 0);
}

void GraphicPanel::cancel() {
  figures_.GraphScale = figures_.GraphScaleSaved;
  figures_.Landscape = figures_.LandscapeSaved;
  settings_.BackImage = settings_.BackImageSaved;
}

}  // namespace vk
