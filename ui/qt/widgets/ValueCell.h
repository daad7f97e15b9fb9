#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "ui/layout/CharFrame.h"
#include "ui/layout/Geometry.h"

namespace vk {

/// A clickable field of the input form, `lblVal`: a text in character cells on a coloured ground.
class ValueCell : public QWidget {
 public:
  ValueCell(QWidget* form, CellSize cell, bool flushRight, Colour background);

  /// Text in code page 437.
  void setText(const std::string& text);
  std::function<void()> clicked;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  CellSize cell_;
  bool flushRight_;
  Colour background_;
  std::string text_;
};

}  // namespace vk
