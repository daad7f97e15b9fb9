#pragma once

#include <functional>

#include "gral/Device.h"

namespace vk {

/// A window that holds one figure.
class PlotWindow {
 public:
  virtual ~PlotWindow() = default;

  /// The surface of the window, a form. It lives as long as the window.
  virtual Device& device() = 0;
  /// What a click anywhere in the window runs; the window is the active one then.
  virtual void setClickRoutine(std::function<void()> routine) = 0;
  /// Clears the clipboard and puts the picture there as a bitmap. A clipboard that refuses is run-time
  /// error 5.
  virtual void copyPicture() = 0;
};

/// The plot windows of the program.
class PlotWindows {
 public:
  virtual ~PlotWindows() = default;

  /// A new window, not yet visible. It lives until it is closed; a hidden one may be freed when the next is made.
  virtual PlotWindow& create() = 0;
  /// The window in front, or none.
  virtual PlotWindow* active() = 0;
  /// How many windows have been made.
  virtual int made() const = 0;
  /// Closes what has been made since `made` gave this number.
  virtual void closeSince(int made) = 0;
  /// Closes them all, at the end of the program.
  virtual void closeAll() = 0;
};

}  // namespace vk
