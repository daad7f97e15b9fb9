#include "ui/qt/ClickLabel.h"

#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace vk {

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && clicked) clicked();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && clicked) return clicked();
  QLabel::keyPressEvent(event);
}

void ClickLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
}

void ClickLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

void ClickLabel::paintLines() {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QRect inside = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
  int baseline = inside.top() + fontMetrics().ascent();
  for (const QString& line : text().split('\n')) {
    painter.drawText(inside.left(), baseline,
                     fontMetrics().elidedText(line, Qt::ElideMiddle, inside.width()));
    baseline += fontMetrics().lineSpacing();
  }
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  text().isEmpty() ? QLabel::paintEvent(event) : paintLines();
  if (!hasFocus()) return;
  QStylePainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

}  // namespace vk
