#include "ui/GraphicPanel.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "session/SubMod.h"

namespace vk {
namespace {

constexpr float kScrollUnit = 10;

}  // namespace

void GraphicPanel::open() {
  session_.BackImageSaved = session_.BackImage;
  session_.GraphScaleSaved = session_.GraphScale;
  session_.LandscapeSaved = session_.Landscape;
  for (std::size_t row = 0; row < scroll_.size(); ++row) {
    const int value = toInt16(session_.GraphScale[row] * kScrollUnit);
    scroll_[row] = std::clamp(value, kScrollMin, kScrollMax);
    showScale(row);
  }
  option_ = session_.Landscape ? 0 : 1;
}

void GraphicPanel::showScale(std::size_t row) {
  // QUIRK: the pattern has no zero rule, so a half reads ".5".
  values_[row] = FormatPattern(scroll_[row] / static_cast<double>(kScrollUnit), "##.0");
}

void GraphicPanel::scroll(int row, int value) {
  const auto index = static_cast<std::size_t>(row);
  scroll_[index] = std::clamp(value, kScrollMin, kScrollMax);
  session_.GraphScale[index] = static_cast<float>(scroll_[index]) / kScrollUnit;
  showScale(index);
}

void GraphicPanel::stepPicture() {
  session_.BackImage = session_.BackImage >= session_.BackImageMax ? 0 : session_.BackImage + 1;
}

void GraphicPanel::accept() {
  for (std::size_t row = 0; row < values_.size(); ++row) {
    session_.GraphScale[row] = static_cast<float>(scanNumber(values_[row]));
  }
  session_.Landscape = toFlag(option_ == 0);
}

void GraphicPanel::cancel() {
  session_.GraphScale = session_.GraphScaleSaved;
  session_.Landscape = session_.LandscapeSaved;
  session_.BackImage = session_.BackImageSaved;
}

}  // namespace vk
