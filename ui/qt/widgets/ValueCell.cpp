#include "ui/qt/widgets/ValueCell.h"

#include <QMouseEvent>
#include <QPainter>

#include "base/Text.h"
#include "ui/qt/widgets/GridPainter.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {

ValueCell::ValueCell(QWidget* form, CellSize cell, bool flushRight, Colour background)
    : QWidget(form), cell_(cell), flushRight_(flushRight), background_(background) {}

void ValueCell::setText(const Cp437Text& text) {
  if (text == text_) return;
  text_ = text;
  setAccessibleDescription(fromText(text));
  update();
}

void ValueCell::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), toColour(background_));
  const double free = toTwips(width()).value() - static_cast<double>(length(text_.bytes())) * cell_.width;
  GridPainter(painter, font(), cell_).text(flushRight_ ? free : 0, 0, text_, background_);
  // The fields of neighbouring rows overlap; a line of the form parts them.
  painter.fillRect(QRect(0, 0, width(), 1), palette().window());
}

void ValueCell::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && clicked) clicked();
}

}  // namespace vk
