#include "ui/qt/forms/MainForm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QUrl>
#include <algorithm>

#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/Pictures.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/TopMenuBar.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr QSize kClientArea(750, 500);
/// The upper border of a panel is hidden above the client area.
constexpr Twips kPanelAbove{100};
/// What a status panel keeps of a long name, in pixels, and an entry of a menu, in characters.
constexpr int kLeastPanel = 150;
constexpr int kLongestEntry = 60;

QString controlText(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

Backdrop::Backdrop(QWidget* parent) : QWidget(parent) {
  setObjectName("Picture");
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void Backdrop::setPicture(int picture) {
  picture_ = picture;
  painted_ = QPixmap();
  update();
}

void Backdrop::paintEvent(QPaintEvent*) {
  const double ratio = devicePixelRatioF();
  // Painted at its place in the window, by which the shades are rounded.
  const QSize pixels = QSize(x() + width(), y() + height()) * ratio;
  if (painted_.size() != pixels || painted_.devicePixelRatio() != ratio) {
    painted_ = QPixmap(pixels);
    painted_.setDevicePixelRatio(ratio);
    QPainter painter(&painted_);
    paintBackground(painter, geometry(), picture_);
  }
  QPainter(this).drawPixmap(-pos(), painted_);
}

Vor_Kel::Vor_Kel(EventPump& pump) : pump_(pump), backdrop_(new Backdrop(this)) {
  setObjectName("Vor_Kel");
  setManualTopic(*this, ManualTopic::kMainWindow);
  setCentralWidget(backdrop_);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(true);
  setMenuBar(new TopMenuBar(this));
  buildMenus();
  buildStatusBar();
  connect(new QShortcut(Qt::Key_F2, this), &QShortcut::activated, this, [this] {
    if (diagnosis) diagnosis();
  });
  setCaption(kProgramTitle);
}

void Vor_Kel::buildMenus() {
  for (const Command& entry : commandTable()) {
    if (entry.kind == CommandKind::kMenu) {
      addMenu(entry);
    } else {
      addEntry(entry);
    }
  }
}

void Vor_Kel::addMenu(const Command& entry) {
  QMenu* parent = entry.parent ? actions_.at(*entry.parent)->menu() : nullptr;
  const QString caption = fromText(entry.caption);
  QMenu* menu = parent == nullptr ? menuBar()->addMenu(caption) : parent->addMenu(caption);
  menu->setObjectName(controlText(entry.name));
  menu->setAccessibleName(QString(caption).remove('&'));
  explainShortened(menu);
  actions_[entry.control] = menu->menuAction();
}

void Vor_Kel::addEntry(const Command& entry) {
  QAction* action = actions_.at(entry.parent.value())->menu()->addAction(fromText(entry.caption));
  action->setObjectName(controlText(entry.name));
  action->setEnabled(entry.enabled());
  action->setVisible(entry.visible());
  action->setCheckable(entry.kind == CommandKind::kCheck);
  action->setMenuRole(QAction::NoRole);
  actions_[entry.control] = action;
  connect(action, &QAction::triggered, this, [this, control = entry.control] {
    if (command) command(control);
  });
}

void Vor_Kel::buildStatusBar() {
  statusBar()->setObjectName("StatusBar1");
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = new NameLabel(this, kLeastPanel);
    panels_[i]->setObjectName(QString("StatusBar1(%1)").arg(i + 1));
    panels_[i]->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    panels_[i]->setMargin(4);
    panels_[i]->setIndent(0);
    statusBar()->addWidget(panels_[i]);
  }
}

/// Of the entries of a menu only those have a tool tip whose caption does not say it all.
void Vor_Kel::explainShortened(QMenu* menu) {
  connect(menu, &QMenu::hovered, menu,
          [menu](const QAction* entry) { menu->setToolTipsVisible(entry->data().toBool()); });
}

void Vor_Kel::buildPanels(const FontSpec& window, const FontSpec& label, MainPanels& panels,
                          const EventRunner& run) {
  const QFont font = toolkitFont(label);
  setFont(toolkitFont(window));
  menuBar()->setFont(QApplication::font());
  statusBar()->setFont(font);
  FraDir_ = new FraDir(backdrop_, panels.directory(), font, run, [&panels](int i) { panels.CmdWrkDir(i); });
  FraGra_ = new FraGra(backdrop_, panels.graphics(), font, run, [&panels](int i) { panels.CmdImpGra(i); });
}

/// The smallest client area shows all of either panel, which nothing but its buttons closes.
void Vor_Kel::keepButtonsReachable() {
  const QSize largest = FraDir_->sizeHint().expandedTo(FraGra_->size());
  backdrop_->setMinimumSize(largest - QSize(0, toPixels(kPanelAbove)));
}

void Vor_Kel::placeFirst() {
  backdrop_->setFixedSize(kClientArea);
  // The status bar learns of the size of its panels by an event.
  QCoreApplication::sendPostedEvents(statusBar(), QEvent::LayoutRequest);
  adjustSize();
  keepButtonsReachable();
  backdrop_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  const QRect area = screen()->availableGeometry();
  move(area.center() - rect().center());
}

void Vor_Kel::setMenuEnabled(Control control, bool enabled) {
  menuEnabled_[control] = enabled;
  applyMenuStates();
}

void Vor_Kel::applyMenuStates() {
  const auto table = commandTable();
  const bool anyMenu = std::any_of(table.begin(), table.end(), [this](const Command& entry) {
    return !entry.parent && menuEnabled_[entry.control];
  });
  // A bar of grey menus would take the access keys from the buttons of an open panel.
  menuBar()->setEnabled(anyMenu);
  // The toolkit turns the entries of sub-menus off and on with the window and its bar, whatever they were.
  for (const auto& [control, enabled] : menuEnabled_) actions_.at(control)->setEnabled(enabled);
}

void Vor_Kel::setMenuVisible(Control control, bool visible) {
  actions_.at(control)->setVisible(visible);
}

void Vor_Kel::setMenuChecked(Control control, bool checked) {
  actions_.at(control)->setChecked(checked);
}

void Vor_Kel::setMenuCaption(Control control, const WindowText& caption) {
  // What follows a tab would be shown as a shortcut.
  const QString whole = fromText(caption).replace('\t', ' ');
  QAction* entry = actions_.at(control);
  entry->setText(shortenedCaption(whole, kLongestEntry));
  entry->setToolTip(plainCaption(whole));
  entry->setData(entry->text() != whole);
}

void Vor_Kel::setPanel(int panel, const WindowText& text) {
  panels_.at(static_cast<std::size_t>(panel) - 1)->setName(fromText(text));
}

void Vor_Kel::setCaption(const WindowText& caption) {
  setWindowTitle(fromText(caption));
  setAccessibleName(windowTitle());
}

void Vor_Kel::shut(Form holder) {
  holders_.push_back(holder);
  followHolders();
}

void Vor_Kel::release(Form holder) {
  const auto held = std::find(holders_.begin(), holders_.end(), holder);
  if (held != holders_.end()) holders_.erase(held);
  if (holders_.empty()) pump_.dropInput();
  followHolders();
}

void Vor_Kel::followHolders() {
  setEnabled(holders_.empty());
  applyMenuStates();
}

void Vor_Kel::refresh() {
  update();
}

void Vor_Kel::toFront() {
  raise();
  activateWindow();
}

QFrame* Vor_Kel::frame(Panel panel) const {
  return panel == Panel::kDirectory ? static_cast<QFrame*>(FraDir_) : FraGra_;
}

void Vor_Kel::placePanel(QFrame* frame) {
  frame->adjustSize();
  frame->move((backdrop_->width() - frame->width()) / 2, -toPixels(kPanelAbove));
}

void Vor_Kel::showPanel(Panel panel) {
  placePanel(frame(panel));
  frame(panel)->show();
  // As if by Tab, so that its first control is seen to have it.
  frame(panel)->setFocus(Qt::TabFocusReason);
}

void Vor_Kel::hidePanel(Panel panel) {
  frame(panel)->hide();
}

void Vor_Kel::syncPanel(Panel panel) {
  panel == Panel::kDirectory ? FraDir_->sync() : FraGra_->sync();
  placePanel(frame(panel));
}

void Vor_Kel::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  for (QFrame* open : {static_cast<QFrame*>(FraDir_), static_cast<QFrame*>(FraGra_)}) {
    if (open != nullptr && open->isVisible()) placePanel(open);
  }
}

bool Vor_Kel::event(QEvent* event) {
  const bool turnedTo = event->type() == QEvent::WindowActivate || event->type() == QEvent::MouseButtonPress;
  if (turnedTo && !holders_.empty() && turnedToWhileShut) turnedToWhileShut(holders_.back());
  return QMainWindow::event(event);
}

/// True for files of the machine, where a menu entry could be chosen as well.
bool Vor_Kel::isOpenFor(const QMimeData& dropped) const {
  const QList<QUrl> urls = dropped.urls();
  return isEnabled() && menuBar()->isEnabled() && QApplication::activeModalWidget() == nullptr &&
         !urls.isEmpty() && std::ranges::all_of(urls, &QUrl::isLocalFile);
}

void Vor_Kel::dragEnterEvent(QDragEnterEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(isOpenFor(*event->mimeData()));
}

void Vor_Kel::dropEvent(QDropEvent* event) {
  // Whoever proposes to move a file would delete it behind a drop that was taken as a move.
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(isOpenFor(*event->mimeData()));
  if (!event->isAccepted()) return;
  std::vector<std::string> names;
  for (const QUrl& url : event->mimeData()->urls()) names.push_back(toFileName(url.toLocalFile()));
  // The program that the files come from waits for the end of the drop, which no box of ours may hold up.
  const auto open = [this, names = std::move(names)] {
    activateWindow();
    if (openFiles) openFiles(names);
  };
  QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}

void Vor_Kel::closeEvent(QCloseEvent* event) {
  // While a command has shut the window out, it cannot end the program either.
  event->setAccepted(isEnabled() && (!unload || unload()));
}

}  // namespace vk
