#pragma once

#include <array>
#include <optional>
#include <string>

#include "analysis/CurveBand.h"
#include "base/Int16.h"

namespace vk {

/// The figures drawn last, as texts, and how figures are drawn.
struct FigureSettings {
  std::array<std::string, 4> GraphText;  ///< 1 data, 2 data and function, 3 differences
  std::string DiffText;
  std::optional<int> DiffDigits;  ///< significant ones of its numbers; nobody gets other than 6 unasked
  std::optional<CurveBand> band;  ///< about the function of its figure; nobody gets one unasked
  std::array<float, 4> GraphScale{1, 1, 1, 1};
  std::array<float, 4> GraphScaleSaved{1, 1, 1, 1};
  Flag Landscape = kTrue;
  Flag LandscapeSaved;
};

}  // namespace vk
