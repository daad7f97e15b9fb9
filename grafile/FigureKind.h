#pragma once

namespace vk {

/// The standard figures.
enum FigureKind : int { kDataFigure = 1, kFunctionFigure = 2, kDifferencesFigure = 3 };

}  // namespace vk
