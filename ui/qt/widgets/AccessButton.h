#pragma once

#include <QPushButton>

namespace vk {

/// A push button whose access key presses it at once, without the moment of animation in which other input
/// could come in between.
class AccessButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  bool event(QEvent* event) override;
};

}  // namespace vk
