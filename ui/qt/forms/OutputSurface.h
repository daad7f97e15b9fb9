#pragma once

#include <QWidget>

#include "platform/CharGrid.h"
#include "ui/layout/CharFrame.h"

namespace vk {

/// What a window draws a grid of characters on. Assistive tools read the grid as the description of the surface.
class OutputSurface : public QWidget {
 public:
  /// The grid, whose content may change, outlives the surface.
  OutputSurface(QWidget* form, const CharGrid& grid);

  /// Cells of this size, in the font of the form.
  void setCell(CellSize cell);
  /// The grid as text.
  QString gridText() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const CharGrid& grid_;
  CellSize cell_;
};

}  // namespace vk
