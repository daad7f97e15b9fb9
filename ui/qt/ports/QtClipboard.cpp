#include "ui/qt/ports/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/GridPainter.h"
#include "ui/qt/widgets/TextConversion.h"

namespace vk {
void QtClipboard::clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::setText(const PlainText& text) {
  QGuiApplication::clipboard()->setText(fromLines(text));
}

void QtClipboard::setGrid(const CharGrid& grid) {
  auto* content = new QMimeData;
  content->setImageData(gridImage(grid, toolkitFont(font_)));
  content->setText(QString::fromStdString(grid.toUtf8()));
  QGuiApplication::clipboard()->setMimeData(content);
}

ClipboardText QtClipboard::text() {
  const QString held = QGuiApplication::clipboard()->text();
  const TakenText taken = takeForCp437(held);
  return {toLines(taken.text, false), taken.complete, toLines(withLineFeeds(held), true)};
}

}  // namespace vk
