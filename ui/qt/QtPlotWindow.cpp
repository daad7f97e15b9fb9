#include "ui/qt/QtPlotWindow.h"

#include <QAbstractEventDispatcher>
#include <QClipboard>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "ui/qt/Text8.h"
#include "ui/qt/Twips.h"
#include "ui/qt/devices/QtPicture.h"

namespace vk {
namespace {

constexpr int kShowingTime = 500;  // ms

int screenRatio() {
  return std::max(1, static_cast<int>(std::ceil(QGuiApplication::primaryScreen()->devicePixelRatio())));
}

}  // namespace

QtPlotWindow::QtPlotWindow(const World& world) : world_(world), device_(world.letters, screenRatio()) {
  setObjectName(QStringLiteral("GralFrm"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  device_.onFormChanged = [this] { followForm(); };
  device_.onRefresh = [this] {
    if (showChanged()) world_.breath.take();
  };
  // What nobody has asked to show appears as soon as the command has ended, or waits for the user.
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] { showChanged(); });
}

void QtPlotWindow::followForm() {
  const QString caption = fromWindowText(device_.Caption());
  setWindowTitle(caption);
  setAccessibleName(caption);
  setFixedSize(toPixels(device_.Width()), toPixels(device_.Height()));
  const QPoint corner = screen()->availableGeometry().topLeft();
  const QPoint place = corner + QPoint(toPixels(device_.Left()), toPixels(device_.Top()));
  if (place != pos() && !isVisible()) move(place);
  if (device_.Visible() == isVisible()) return;
  setVisible(device_.Visible());
  if (!isVisible()) return;
  world_.activated(*this);
  awaitShowing();
}

/// Until the window system shows the window there is nothing in it, not even white, and what is drawn next may
/// take its time.
void QtPlotWindow::awaitShowing() {
  const QDeadlineTimer deadline(kShowingTime);
  while (!windowHandle()->isExposed() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

bool QtPlotWindow::showChanged() {
  const PixelRect changed = device_.raster().takeChanged();
  if (changed == PixelRect{}) return false;
  const int ratio = device_.pixelRatio();
  const QPoint first(changed.x1 / ratio, changed.y1 / ratio);
  const QPoint last((changed.x2 - 1) / ratio, (changed.y2 - 1) / ratio);
  update(QRect(first, last));
  return true;
}

void QtPlotWindow::paintEvent(QPaintEvent* event) {
  const QRect part = event->rect() & rect();
  const int ratio = device_.pixelRatio();
  const PixelRect pixels{part.left() * ratio, part.top() * ratio, (part.right() + 1) * ratio,
                         (part.bottom() + 1) * ratio};
  const Picture picture = device_.raster().reduced(device_.reduction(), pixels);
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(part), imageOf(picture));
}

void QtPlotWindow::mousePressEvent(QMouseEvent* event) {
  event->accept();
  world_.activated(*this);
  if (click_) world_.run(click_);
}

void QtPlotWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) world_.activated(*this);
  QWidget::changeEvent(event);
}

void QtPlotWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  device_.setVisible(false);
}

void QtPlotWindow::copyPicture() {
  const Picture picture = device_.Image();
  auto* content = new QMimeData;  // the clipboard takes it over
  content->setImageData(imageOf(picture).copy());
  content->setData(QStringLiteral("image/svg+xml"), QByteArray::fromStdString(device_.svg()));
  QGuiApplication::clipboard()->clear();
  QGuiApplication::clipboard()->setMimeData(content);
}

QtPlotWindows::QtPlotWindows(QtGraphics& graphics, Breath& breath, EventRunner run)
    : world_{graphics.letters(), breath, std::move(run),
             [this](QtPlotWindow& window) { active_ = &window; }} {}

PlotWindow& QtPlotWindows::create() {
  freeHidden();
  windows_.push_back(std::make_unique<QtPlotWindow>(world_));
  return *windows_.back();
}

void QtPlotWindows::freeHidden() {
  if (active_ != nullptr && !active_->isVisible()) active_ = nullptr;
  std::erase_if(windows_, [](const auto& window) { return !window->isVisible(); });
}

void QtPlotWindows::closeAll() {
  active_ = nullptr;
  windows_.clear();
}

}  // namespace vk
