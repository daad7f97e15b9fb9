#include "ui/qt/widgets/ControlStyle.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionComboBox>

namespace vk {
namespace {

constexpr int kRingWidth = 2;
constexpr int kTextSpace = 4;

/// Two lines, of which one stands out on any ground.
void drawRing(QPainter& painter, const QRect& place, const QPalette& palette) {
  painter.save();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(palette.color(QPalette::Active, QPalette::Highlight));
  painter.drawRect(place.adjusted(0, 0, -1, -1));
  painter.setPen(palette.color(QPalette::Active, QPalette::HighlightedText));
  painter.drawRect(place.adjusted(1, 1, -kRingWidth, -kRingWidth));
  painter.restore();
}

void drawThumb(QPainter& painter, const QRect& place, const QStyleOption& option) {
  const bool focused = option.state.testFlag(QStyle::State_HasFocus);
  const QColor colour = focused ? option.palette.color(QPalette::Active, QPalette::Highlight)
                                : option.palette.color(QPalette::Dark);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawRoundedRect(place.adjusted(1, 1, -1, -1), 3, 3);
  painter.restore();
}

}  // namespace

ControlStyle::ControlStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
  if (element == PE_FrameFocusRect) return drawRing(*painter, option->rect, option->palette);
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
      element == CE_ItemViewItem && item != nullptr && widget != nullptr && !widget->hasFocus()) {
    // The chosen entry of a list that the keys do not go to.
    QStyleOptionViewItem faint(*item);
    faint.state &= ~State_Active;
    return QProxyStyle::drawControl(element, &faint, painter, widget);
  }
  if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      element == CE_ComboBoxLabel && box != nullptr) {
    QStyleOptionComboBox shortened(*box);
    const QRect place = subControlRect(CC_ComboBox, box, SC_ComboBoxEditField, widget);
    shortened.currentText =
        box->fontMetrics.elidedText(box->currentText, Qt::ElideMiddle, place.width() - kTextSpace);
    return QProxyStyle::drawControl(element, &shortened, painter, widget);
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const bool focused = option->state.testFlag(State_HasFocus);
  if (control == CC_ComboBox && focused)
    drawRing(*painter, option->rect.adjusted(kRingWidth, kRingWidth, -kRingWidth, -kRingWidth),
             option->palette);
  if (control != CC_ScrollBar || !option->subControls.testFlag(SC_ScrollBarSlider)) return;
  drawThumb(*painter, subControlRect(control, option, SC_ScrollBarSlider, widget), *option);
  if (focused) drawRing(*painter, option->rect, option->palette);
}

}  // namespace vk
