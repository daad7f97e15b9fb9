#pragma once

#include <memory>

#include "ui/qt/devices/QtLetters.h"

namespace vk {

/// What the devices need of the toolkit: an application object and the letters. Where the program has no
/// application object yet, one without a screen is made, and the toolkit's remarks are kept silent.
class QtGraphics {
 public:
  QtGraphics();
  ~QtGraphics();
  QtGraphics(const QtGraphics&) = delete;
  QtGraphics& operator=(const QtGraphics&) = delete;

  /// Made at the first call: to measure them takes time.
  QtLetters& letters();

 private:
  struct Application;
  std::unique_ptr<Application> application_;
  std::unique_ptr<QtLetters> letters_;
};

}  // namespace vk
