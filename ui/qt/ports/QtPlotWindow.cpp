#include "ui/qt/ports/QtPlotWindow.h"

#include <QAbstractEventDispatcher>
#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <array>
#include <cmath>

#include "base/Guard.h"
#include "ui/qt/devices/ImageDevice.h"
#include "ui/qt/devices/QtPicture.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr const char* kClickMeaning =
    "Un clic sulla figura, Invio, Spazio o il tasto Menu offrono: Continua, Esci, Copia, Stampa";

/// A figure steps aside of those that stand where it is to appear, so that their titles can be seen.
constexpr Twips kFigureStep{450};  // to the right and down
constexpr int kFigurePlaces = 8;

/// On a screen of one and a half a pixel is made of its neighbours on the picture too.
constexpr QMargins kSmoothRim(1, 1, 1, 1);

int screenRatio() {
  return std::max(1, static_cast<int>(std::ceil(QGuiApplication::primaryScreen()->devicePixelRatio())));
}

}  // namespace

QtPlotWindow::QtPlotWindow(const World& world, int number)
    : world_(world), number_(number), device_(world.graphics.letters(), screenRatio()) {
  setObjectName(QStringLiteral("GralFrm"));
  setManualTopic(*this, ManualTopic::kFigure);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setToolTip(kClickMeaning);
  setAccessibleDescription(kClickMeaning);
  device_.onFormChanged = [this] { followForm(); };
  device_.onRefresh = [this] {
    if (showChanged()) world_.pump.repaint();
  };
  // What nobody has asked to show appears as soon as the command has ended, or waits for the user.
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] { showChanged(); });
}

void QtPlotWindow::followForm() {
  const QString caption = fromText(WindowText(device_.Caption()));
  setWindowTitle(caption);
  setAccessibleName(caption);
  setFixedSize(toPixels(Size{device_.Width(), device_.Height()}));
  if (!isVisible()) {
    const QPoint corner = screen()->availableGeometry().topLeft();
    move(world_.freePlace(corner + toPixels(Twips(device_.Left()), Twips(device_.Top()))));
  }
  if (device_.Visible() == isVisible()) return;
  setVisible(device_.Visible());
  if (!isVisible()) return;
  world_.activated(*this);
  // What is drawn next may take its time.
  world_.pump.awaitShowing(*this);
}

bool QtPlotWindow::showChanged() {
  const PixelRect changed = device_.raster().takeChanged();
  if (changed == PixelRect{}) return false;
  const int ratio = device_.pixelRatio();
  const QPoint first(changed.x1 / ratio, changed.y1 / ratio);
  const QPoint last((changed.x2 - 1) / ratio, (changed.y2 - 1) / ratio);
  update(QRect(first, last) + kSmoothRim);
  return true;
}

// An error must not leave an event of the toolkit: what is not painted now is at the next time.
void QtPlotWindow::paintEvent(QPaintEvent* event) {
  guard([&] { paint(event->rect()); });
}

void QtPlotWindow::paint(const QRect& wanted) {
  const QRect part = (wanted + kSmoothRim) & rect();
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
  click();
}

void QtPlotWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Menu:
      // A key that is held down is one click.
      if (!event->isAutoRepeat()) click();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void QtPlotWindow::click() {
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
  auto content = std::make_unique<QMimeData>();
  content->setImageData(imageOf(picture).copy());
  const auto add = [&content](const QString& format, const std::string& file) {
    content->setData(format, QByteArray::fromStdString(file));
  };
  add(QStringLiteral("image/png"), pngOf(picture));
  add(QStringLiteral("image/svg+xml"), device_.svg());
  add(QStringLiteral("application/pdf"), device_.pdf());
  QGuiApplication::clipboard()->clear();
  QGuiApplication::clipboard()->setMimeData(content.release());  // which takes it over
}

QtPlotWindows::QtPlotWindows(QtGraphics& graphics, EventPump& pump, EventRunner run)
    : world_{graphics, pump, std::move(run), [this](QtPlotWindow& window) { active_ = &window; },
             [this](QPoint first) { return freePlace(first); }} {}

PlotWindow& QtPlotWindows::create() {
  freeHidden();
  windows_.push_back(std::make_unique<QtPlotWindow>(world_, ++made_));
  return *windows_.back();
}

void QtPlotWindows::closeSince(int made) {
  if (active_ != nullptr && active_->number() > made) active_ = nullptr;
  std::erase_if(windows_, [made](const auto& window) { return window->number() > made; });
}

void QtPlotWindows::freeHidden() {
  if (active_ != nullptr && !active_->isVisible()) active_ = nullptr;
  std::erase_if(windows_, [](const auto& window) { return !window->isVisible(); });
}

/// The first place of a row in which the fewest figures stand; a figure that the user has moved stands nowhere.
QPoint QtPlotWindows::freePlace(QPoint first) const {
  const int step = toPixels(kFigureStep);
  std::array<int, kFigurePlaces> standing{};
  for (const auto& window : windows_) {
    const QPoint away = window->pos() - first;
    const int place = qRound(static_cast<double>(away.x()) / step);
    const bool stands = window->isVisible() && place >= 0 && place < kFigurePlaces &&
                        (away - place * QPoint(step, step)).manhattanLength() < step / 2;
    if (stands) ++standing.at(static_cast<std::size_t>(place));
  }
  const auto freest = std::min_element(standing.begin(), standing.end()) - standing.begin();
  return first + static_cast<int>(freest) * QPoint(step, step);
}

void QtPlotWindows::closeAll() {
  active_ = nullptr;
  windows_.clear();
}

}  // namespace vk
