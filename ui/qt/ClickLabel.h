#pragma once

#include <QLabel>
#include <functional>

namespace vk {

/// A label, or a picture, that can be clicked, by the mouse or by the blank key. Lines too long for the label are
/// shortened in the middle; the tool tip has them whole.
class ClickLabel : public QLabel {
 public:
  explicit ClickLabel(QWidget* parent) : QLabel(parent) { setFocusPolicy(Qt::TabFocus); }
  std::function<void()> clicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void paintLines();
};

}  // namespace vk
