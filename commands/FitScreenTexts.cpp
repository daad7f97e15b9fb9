#include "commands/FitScreenTexts.h"

#include <algorithm>

#include "base/NumberMasks.h"
#include "base/Rounding.h"
#include "base/Text.h"

namespace vk {
namespace {

constexpr int kLeastNameWidth = 3;
const std::string kSmallConfidenceMask = "#.##^^^^";
const std::string kMatrixMask = " #####";
constexpr double kSmallConfidence = 0.001;

}  // namespace

int nameWidthOf(const ParameterSet& par) {
  const int width = std::max<int>(kLeastNameWidth, par.ParNameWidth);
  return width % 2 == 0 ? width + 1 : width;
}

std::string nameText(const ParameterSet& par, int parameter, int width) {
  const std::string field = mid(par.ParNames, (parameter - 1) * kNameSlot + 11, kNameSlot);
  return right(length(trim(field)) < width ? field + " " : field, width);
}

std::string confidenceText(double confidence) {
  const std::string& mask = confidence < kSmallConfidence ? kSmallConfidenceMask : kConfidenceMask;
  return FormatMask(confidence, mask) + kPerCent;
}

std::string correlationText(double correlation) {
  return FormatMask(toInt16(100 * correlation), kMatrixMask);
}

}  // namespace vk
