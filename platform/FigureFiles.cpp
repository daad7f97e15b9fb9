#include "platform/FigureFiles.h"

#include "base/Text.h"
#include "platform/Files.h"

namespace vk {

std::optional<FigureFormat> figureFormatOf(std::string_view path) {
  const std::string ending = upper(GetExtensionName(path));
  if (ending == "PNG") return FigureFormat::kPng;
  if (ending == "SVG") return FigureFormat::kSvg;
  if (ending == "PDF") return FigureFormat::kPdf;
  return {};
}

}  // namespace vk
