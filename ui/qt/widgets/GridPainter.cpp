#include "ui/qt/widgets/GridPainter.h"

#include <QFontMetricsF>

#include "base/CodePage.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {

GridPainter::GridPainter(QPainter& painter, const QFont& font, CellSize cell, double unit)
    : painter_(painter), cell_(cell), unit_(unit) {
  painter_.setFont(font);
  const QFontMetricsF metrics(font, painter.device());
  baseline_ = (cell.height * unit - metrics.height()) / 2 + metrics.ascent();
}

QRectF GridPainter::cellRect(double left, double top) const {
  return {left * unit_, top * unit_, cell_.width * unit_, cell_.height * unit_};
}

void GridPainter::character(const QRectF& cell, char c) {
  if (c == ' ') return;
  const char32_t glyph = toUnicode(c, CodePage::kCp437);
  painter_.drawText(QPointF(cell.left(), cell.top() + baseline_), QString::fromUcs4(&glyph, 1));
}

void GridPainter::text(double left, double top, const Cp437Text& shown, Colour background) {
  const std::string_view text = shown.bytes();
  const double width = static_cast<double>(text.size()) * cell_.width;
  painter_.fillRect(QRectF(left * unit_, top * unit_, width * unit_, cell_.height * unit_),
                    toColour(background));
  painter_.setPen(toColour(kBlack));
  for (std::size_t i = 0; i < text.size(); ++i) {
    character(cellRect(left + static_cast<double>(i) * cell_.width, top), text[i]);
  }
}

void GridPainter::frame(const GridFrame& frame, Colour background) {
  const double pixel = kNominalTwipsPerPixel * unit_;
  for (const ColouredLine& line : frameLines(frame, cell_, background)) {
    const QPointF from(line.x1 * unit_, line.y1 * unit_);
    const QSizeF size((line.x2 - line.x1) * unit_ + pixel, (line.y2 - line.y1) * unit_ + pixel);
    painter_.fillRect(QRectF(from, size), toColour(line.colour));
  }
}

void GridPainter::grid(const CharGrid& grid, double left, double top, Colour background) {
  painter_.save();
  painter_.translate(left * unit_, top * unit_);
  for (const GridFrame& f : grid.frames()) frame(f, background);
  painter_.setPen(toColour(kBlack));
  for (int row = 1; row <= grid.rows(); ++row) {
    for (int col = 1; col <= grid.cols(); ++col) {
      if (!grid.covers(row, col)) continue;
      const QRectF cell = cellRect((col - 1.0) * cell_.width, (row - 1.0) * cell_.height);
      painter_.fillRect(cell, toColour(background));
      character(cell, grid.at(row, col));
    }
  }
  painter_.restore();
}

QImage gridImage(const CharGrid& grid, const QFont& font) {
  constexpr int kRatio = 2;
  const CellSize cell = cellOf(font);
  const QSize size(toPixels(Twips(grid.cols() * cell.width)), toPixels(Twips(grid.rows() * cell.height)));
  QImage image(size * kRatio, QImage::Format_RGB32);
  image.setDevicePixelRatio(kRatio);
  image.fill(Qt::white);
  QPainter painter(&image);
  GridPainter(painter, font, cell).grid(grid, 0, 0, kWhite);
  return image;
}

}  // namespace vk
