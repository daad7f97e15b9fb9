#pragma once

#include <functional>

#include "ui/qt/widgets/NameLabel.h"

namespace vk {

/// A label, or a picture, that can be clicked, by the mouse or by the blank key.
class ClickLabel : public NameLabel {
 public:
  explicit ClickLabel(QWidget* parent) : NameLabel(parent) { setFocusPolicy(Qt::TabFocus); }
  std::function<void()> clicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vk
