#include "ui/qt/forms/OutputSurface.h"

#include <QAccessibleWidget>
#include <QPainter>

#include "ui/qt/widgets/GridPainter.h"

namespace vk {
namespace {

/// Makes the text only when somebody asks for it: a fit draws far more often than that.
class SurfaceText : public QAccessibleWidget {
 public:
  explicit SurfaceText(OutputSurface* surface)
      : QAccessibleWidget(surface, QAccessible::StaticText), surface_(surface) {}
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Description ? surface_->gridText() : QAccessibleWidget::text(kind);
  }

 private:
  OutputSurface* surface_;
};

QAccessibleInterface* surfaceText(const QString&, QObject* object) {
  auto* surface = dynamic_cast<OutputSurface*>(object);
  return surface == nullptr ? nullptr : new SurfaceText(surface);
}

}  // namespace

OutputSurface::OutputSurface(QWidget* form, const CharGrid& grid) : QWidget(form), grid_(grid) {
  setObjectName("Surface");
  setAttribute(Qt::WA_OpaquePaintEvent);
  QAccessible::installFactory(surfaceText);
}

void OutputSurface::setCell(CellSize cell) {
  cell_ = cell;
  update();
}

QString OutputSurface::gridText() const {
  return QString::fromStdString(grid_.toUtf8());
}

void OutputSurface::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  GridPainter(painter, font(), cell_).grid(grid_, 0, 0, kWhite);
}

}  // namespace vk
