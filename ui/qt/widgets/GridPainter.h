#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>

#include "base/Length.h"
#include "platform/CharGrid.h"
#include "ui/layout/CharFrame.h"

namespace vk {

inline QColor toColour(Colour colour) {
  return QColor(colour.rgb());
}

/// Paints character cells. Lengths are twips; `unit` is the painter's units for a twip.
class GridPainter {
 public:
  GridPainter(QPainter& painter, const QFont& font, CellSize cell, double unit = 1 / kNominalTwipsPerPixel);

  /// A text from this place on, each character in a cell of its own, opaque on `background`.
  void text(double left, double top, const Cp437Text& text, Colour background);
  /// A frame through the centres of its corner cells.
  void frame(const GridFrame& frame, Colour background);
  /// A whole grid with its frames, from this place on. Cells that were never printed on let the paper through.
  void grid(const CharGrid& grid, double left, double top, Colour background);

 private:
  QRectF cellRect(double left, double top) const;
  void character(const QRectF& cell, char c);

  QPainter& painter_;
  CellSize cell_;
  double unit_;
  double baseline_;
};

/// A picture of the grid in a fixed-width font, for documents: two points of it are one of the screen's.
QImage gridImage(const CharGrid& grid, const QFont& font);

}  // namespace vk
