#pragma once

#include <QWidget>
#include <functional>

#include "base/EncodedText.h"
#include "ui/layout/CharFrame.h"

namespace vk {

/// A clickable field of the input form, `lblVal`: a text in character cells on a coloured ground.
class ValueCell : public QWidget {
 public:
  ValueCell(QWidget* form, CellSize cell, bool flushRight, Colour background);

  void setText(const Cp437Text& text);
  std::function<void()> clicked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  CellSize cell_;
  bool flushRight_;
  Colour background_;
  Cp437Text text_;
};

}  // namespace vk
