#include "ui/qt/widgets/ClickLabel.h"

#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace vk {

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && clicked) clicked();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && clicked) return clicked();
  NameLabel::keyPressEvent(event);
}

void ClickLabel::focusInEvent(QFocusEvent* event) {
  NameLabel::focusInEvent(event);
  update();
}

void ClickLabel::focusOutEvent(QFocusEvent* event) {
  NameLabel::focusOutEvent(event);
  update();
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  NameLabel::paintEvent(event);
  if (!hasFocus()) return;
  QStylePainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

}  // namespace vk
