#include "ui/GraphicPanel.h"

#include <algorithm>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "session/Session.h"

namespace vk {
namespace {

constexpr float kScrollUnit = 10;

}  // namespace

void GraphicPanel::open() {
  session_.settings.BackImageSaved = session_.settings.BackImage;
  session_.figures.GraphScaleSaved = session_.figures.GraphScale;
  session_.figures.LandscapeSaved = session_.figures.Landscape;
  for (std::size_t row = 0; row < scroll_.size(); ++row) {
    const int value = toInt16(session_.figures.GraphScale[row] * kScrollUnit);
    scroll_[row] = std::clamp(value, kScrollMin, kScrollMax);
    showScale(row);
  }
  option_ = session_.figures.Landscape ? 0 : 1;
}

void GraphicPanel::showScale(std::size_t row) {
  // QUIRK: the pattern has no zero rule, so a half reads ".5".
  values_[row] = FormatPattern(scroll_[row] / static_cast<double>(kScrollUnit), "##.0");
}

void GraphicPanel::scroll(int row, int value) {
  const auto index = static_cast<std::size_t>(row);
  scroll_[index] = std::clamp(value, kScrollMin, kScrollMax);
  session_.figures.GraphScale[index] = static_cast<float>(scroll_[index]) / kScrollUnit;
  showScale(index);
}

void GraphicPanel::stepPicture() {
  session_.settings.BackImage =
      session_.settings.BackImage >= session_.settings.BackImageMax ? 0 : session_.settings.BackImage + 1;
}

int GraphicPanel::picture() const {
  return session_.settings.BackImage;
}

void GraphicPanel::accept() {
  for (std::size_t row = 0; row < values_.size(); ++row) {
    session_.figures.GraphScale[row] = static_cast<float>(scanNumber(values_[row]));
  }
  session_.figures.Landscape = toFlag(option_ == 0);
}

void GraphicPanel::cancel() {
  session_.figures.GraphScale = session_.figures.GraphScaleSaved;
  session_.figures.Landscape = session_.figures.LandscapeSaved;
  session_.settings.BackImage = session_.settings.BackImageSaved;
}

}  // namespace vk
