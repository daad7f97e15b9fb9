#include "ui/qt/ports/QtReportWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>

#include "platform/OutputWindow.h"
#include "ui/qt/ports/ReportSheet.h"
#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/GridPainter.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

// Pixels.
constexpr int kButtonHeight = 27, kLeastButtonWidth = 100;
constexpr int kMargin = 8;
constexpr QSize kFigure(480, 380), kLeastFigure(300, 240);
constexpr Twips kBelowOwnersTop{600};
constexpr double kTextShare = 0.6;  // of the width of the screen, at most

}  // namespace

QtReportWindow::QtReportWindow(const ReportServices& services)
    : QWidget(nullptr, kOwnedWindow | Qt::WindowMaximizeButtonHint),
      services_(services),
      scroll_(new QScrollArea),
      surface_(new OutputSurface(nullptr, report_.text)),
      figure_(new FigureView(services_.graphics)) {
  setObjectName("FrmDia");
  setManualTopic(*this, ManualTopic::kDiagnosis);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, Qt::white);
  setPalette(colours);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidget(surface_);
  figure_->setObjectName("Figure");
  figure_->setMinimumSize(kLeastFigure);
  figure_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  auto* content = new QHBoxLayout;
  content->addWidget(scroll_);
  content->addWidget(figure_, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->addLayout(content, 1);
  addButtons();
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QtReportWindow::close);
}

void QtReportWindow::addButtons() {
  auto* row = new QHBoxLayout;
  row->addStretch();
  const auto add = [&](const WindowText& caption, void (QtReportWindow::*action)()) {
    auto* button = new AccessButton(this);
    button->setObjectName(QString("CmdDia(%1)").arg(row->count() / 2));
    button->setFont(toolkitFont(services_.FontLabel));
    button->setText(fromCaption(caption));
    button->setFixedHeight(kButtonHeight);
    button->setMinimumWidth(kLeastButtonWidth);
    connect(button, &QPushButton::clicked, this,
            [this, action] { services_.runEvent([&] { (this->*action)(); }); });
    row->addWidget(button);
    row->addStretch();
    return button;
  };
  AccessButton* first = add(kContinueButton, &QtReportWindow::close);
  add(kPrintButton, &QtReportWindow::print);
  add(kCopyButton, &QtReportWindow::copy);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
    connect(new QShortcut(key, this), &QShortcut::activated, first, &QPushButton::click);
  qobject_cast<QVBoxLayout*>(layout())->addLayout(row);
  setFocusProxy(first);
}

void QtReportWindow::show(FigureReport report) {
  report_ = std::move(report);
  setWindowTitle(fromText(report_.caption));
  setAccessibleName(windowTitle());
  fitText();
  if (!isVisible()) placeFirst();
  figure_->show(report_);
  QWidget::show();
  raise();
  activateWindow();
  setFocus();
}

void QtReportWindow::fitText() {
  setFont(toolkitFont(services_.FontEdit));
  const CellSize cell = cellOf(font());
  const QSize text =
      toPixels(Size{report_.text.cols() * cell.width * 1.0, report_.text.rows() * cell.height * 1.0});
  surface_->setFont(font());
  surface_->setCell(cell);
  surface_->setAccessibleName(windowTitle());
  surface_->resize(text);
  const int most = static_cast<int>(kTextShare * toPixels(services_.windows.screenSize(Form::kMain)).width());
  scroll_->setFixedWidth(std::min(most, text.width() + scroll_->verticalScrollBar()->sizeHint().width()));
}

/// As large as text and figure want it, below the top of the main window; the user's own place is kept.
void QtReportWindow::placeFirst() {
  if (testAttribute(Qt::WA_Moved)) return;
  const QSize screen = toPixels(services_.windows.screenSize(Form::kMain) - services_.windows.frame());
  const QSize wanted(scroll_->width() + kFigure.width() + 3 * kMargin,
                     std::max(surface_->height(), kFigure.height()) + kButtonHeight + 4 * kMargin);
  resize(wanted.boundedTo(screen));
  const Rect owner = services_.windows.place(Form::kMain);
  const Size whole = toTwips(size());
  services_.windows.settle(*this, Form::kMain,
                           {owner.left + (owner.width - whole.width) / 2, owner.top + kBelowOwnersTop.value(),
                            whole.width, whole.height});
}

void QtReportWindow::print() {
  printReport(report_, services_.FontEdit, services_.printer, services_.figurePrinter());
}

void QtReportWindow::copy() {
  const QImage text = gridImage(report_.text, font()), figure = figure_->picture();
  const QSize left = text.deviceIndependentSize().toSize(), right = figure.deviceIndependentSize().toSize();
  QImage both(
      QSize(left.width() + right.width(), std::max(left.height(), right.height())) * text.devicePixelRatio(),
      QImage::Format_RGB32);
  both.setDevicePixelRatio(text.devicePixelRatio());
  both.fill(Qt::white);
  QPainter painter(&both);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(0, 0, text);
  painter.drawImage(left.width(), 0, figure);
  painter.end();
  auto* content = new QMimeData;  // the clipboard takes it over
  content->setImageData(both);
  content->setText(QString::fromStdString(report_.text.toUtf8()) + figure_->accessibleDescription() + "\n");
  content->setData(QStringLiteral("image/svg+xml"), QByteArray::fromStdString(figure_->svg()));
  QGuiApplication::clipboard()->setMimeData(content);
}

}  // namespace vk
