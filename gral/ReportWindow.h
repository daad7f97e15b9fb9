#pragma once

#include <functional>

#include "platform/CharGrid.h"

namespace vk {

class GralCls;

/// A part of a page, in its centimetres (Log).
struct PageArea {
  double left = 0, bottom = 0, right = 0, top = 0;
};

/// Characters with a figure beside them.
struct FigureReport {
  WindowText caption{};
  CharGrid text{};
  WindowText figureName{}, figureMeaning{};  ///< the figure in words, for those who do not see it
  /// Draws the figure into the area of an open drawing; what fails there is not drawn.
  std::function<void(GralCls& drawing, const PageArea& area)> draw{};
};

/// The window of such a report, which the user resizes, copies, prints and closes.
class ReportWindow {
 public:
  virtual ~ReportWindow() = default;
  /// Opens the window, or brings it forward with this report in place of the one that it shows.
  virtual void show(FigureReport report) = 0;
  /// Closes the window, if it is open.
  virtual void close() = 0;
};

}  // namespace vk
