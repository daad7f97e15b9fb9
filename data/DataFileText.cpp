#include <algorithm>
#include <cmath>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"

namespace vk {
namespace {

const NumberMask kPointMask(" ##.#####^^^^ ");

/// Rounded up to the digits of a mask, a number beyond this one would be none any more.
constexpr double kLargestWritten = 1.79E308;

}  // namespace

std::string dataTitle(std::string_view text) {
  std::string title = cleanLine(text);
  const std::string_view shown = trimmedLine(title);
  if (shown.empty()) return "-";
  return shown.front() == '%' ? "- " + std::string(shown) : title;
}

std::string dataField(double value, const NumberMask& mask) {
  if (std::isfinite(value)) value = std::clamp(value, -kLargestWritten, kLargestWritten);
  const std::string field = FormatMask(value, mask);
  if (field.find('*') == std::string::npos) return field;
  // The third digit of an exponent takes the place of the last decimal.
  std::string pattern = mask.pattern;
  pattern.erase(pattern.find('E') - 1, 1);
  const std::string text = FormatPattern(value, pattern);
  return inMask(text.starts_with('.') ? "0" + text : text, mask);
}

std::string dataFileText(const DataSet& data) {
  const std::string lineEnd(kCrLf);
  const bool hasXErrors = data.kXpntErr != kFalse;
  std::string text = dataTitle(data.TitleX) + lineEnd + dataTitle(data.TitleY) + lineEnd +
                     signedText(data.NumPnt) + (hasXErrors ? " 1" : "") + lineEnd;
  for (int i = 1; i <= data.NumPnt; ++i) {
    text += dataField(data.Xpnt[i], kPointMask) + dataField(data.Ypnt[i], kPointMask);
    if (hasXErrors) text += dataField(data.ErrXpnt[i], kPointMask);
    text += dataField(data.ErrYpnt[i], kPointMask) + lineEnd;
  }
  return text;
}

}  // namespace vk
