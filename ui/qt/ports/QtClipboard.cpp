#include "ui/qt/ports/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>

#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/GridPainter.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

/// Screen points of a pixel of a copied picture: fine enough to be pasted into a document.
constexpr int kCopyRatio = 2;

QImage gridImage(const CharGrid& grid, const QFont& font) {
  const CellSize cell = cellOf(font);
  const QSize size(toPixels(Twips(grid.cols() * cell.width)), toPixels(Twips(grid.rows() * cell.height)));
  QImage image(size * kCopyRatio, QImage::Format_RGB32);
  image.setDevicePixelRatio(kCopyRatio);
  image.fill(Qt::white);
  QPainter painter(&image);
  GridPainter(painter, font, cell).grid(grid, 0, 0, kWhite);
  return image;
}

}  // namespace

void QtClipboard::clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::setText(const Cp437Text& text) {
  QGuiApplication::clipboard()->setText(fromLines437(text));
}

void QtClipboard::setGrid(const CharGrid& grid) {
  auto* content = new QMimeData;
  content->setImageData(gridImage(grid, toolkitFont(font_)));
  content->setText(QString::fromStdString(grid.toUtf8()));
  QGuiApplication::clipboard()->setMimeData(content);
}

ClipboardText QtClipboard::text() {
  const TakenText taken = takeForCp437(QGuiApplication::clipboard()->text());
  return {toLines437(taken.text), taken.complete};
}

}  // namespace vk
