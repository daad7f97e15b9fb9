#include "ui/qt/widgets/NameLabel.h"

#include <QPainter>

namespace vk {

NameLabel::NameLabel(QWidget* parent, int leastWidth) : QLabel(parent), leastWidth_(leastWidth) {
  setTextFormat(Qt::PlainText);
}

void NameLabel::setName(const QString& text) {
  setText(text);
  setToolTip(text);
}

QSize NameLabel::minimumSizeHint() const {
  const QSize whole = sizeHint();
  return {std::min(whole.width(), leastWidth_), whole.height()};
}

void NameLabel::paintEvent(QPaintEvent* event) {
  if (text().isEmpty()) return QLabel::paintEvent(event);
  QPainter painter(this);
  drawFrame(&painter);
  painter.setPen(palette().color(foregroundRole()));
  const QRect inside = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
  const QStringList lines = text().split('\n');
  const int height = static_cast<int>(lines.size()) * fontMetrics().lineSpacing();
  int baseline = inside.top() + std::max(0, (inside.height() - height) / 2) + fontMetrics().ascent();
  for (const QString& line : lines) {
    painter.drawText(inside.left(), baseline,
                     fontMetrics().elidedText(line, Qt::ElideMiddle, inside.width()));
    baseline += fontMetrics().lineSpacing();
  }
}

}  // namespace vk
