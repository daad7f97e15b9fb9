#pragma once

#include <QProxyStyle>

namespace vk {

/// One look on every desktop, with what it draws too faintly made plain: which control has the focus, which list
/// the keys go to, and which part of a scroll bar is the thumb.
class ControlStyle : public QProxyStyle {
 public:
  ControlStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

}  // namespace vk
