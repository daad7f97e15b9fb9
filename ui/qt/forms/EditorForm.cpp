#include "ui/qt/forms/EditorForm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>
#include <QVBoxLayout>

#include "ui/layout/EditorLayout.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

const FontSpec kLargeFileFont{"terminal", 12};

}  // namespace

FrmEdi::FrmEdi(Editor& engine, const EditorServices& services)
    : QMainWindow(nullptr, kOwnedWindow | Qt::WindowMinMaxButtonsHint),
      engine_(engine),
      services_(services),
      TxtEdiOld_(new EditorBox(this)),
      TxtEdi_(new EditorBox(this)),
      find_(new FindBar(this)) {
  setObjectName("FrmEdi");
  setManualTopic(*this, ManualTopic::kEditor);
  setContextMenuPolicy(Qt::NoContextMenu);
  buildMenus();
  buildBoxes();
  buildFinding();
}

QAction* FrmEdi::addEntry(QWidget* menu, const char* name, const char* caption, Command command) {
  auto* entry = new QAction(caption, menu);
  entry->setObjectName(name);
  entry->setMenuRole(QAction::NoRole);
  connect(entry, &QAction::triggered, this, [&services = services_, &engine = engine_, command] {
    services.runEvent([&engine, command] { (engine.*command)(); });
  });
  menu->addAction(entry);
  return entry;
}

void FrmEdi::buildMenus() {
  const auto addMenu = [this](const char* name, const char* caption) {
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(name);
    menu->setAccessibleName(QString(caption).remove('&'));
    return menu;
  };
  QMenu* file = addMenu("MnuFil", "&File");
  addEntry(file, "MnuFilSav", "&Salva e Esci", &Editor::MnuFilSav);
  addEntry(file, "MnuFilRin", "&Rinuncia e Esci", &Editor::MnuFilRin);
  MnuMod_ = addMenu("MnuMod", "&Modifica");
  addEntry(MnuMod_, "MnuModCop", "&Copia", &Editor::MnuModCop);
  MnuModInc_ = addEntry(MnuMod_, "MnuModInc", "&Incolla", &Editor::MnuModInc);
  connect(MnuMod_, &QMenu::aboutToShow, this,
          [this] { services_.runEvent([this] { MnuModInc_->setEnabled(engine_.canInsert()); }); });
  QMenu* characters = addMenu("MnuChr", "&Caratteri");
  addEntry(characters, "MnuChrIns", "&Inserisci Carattere", &Editor::MnuChrIns);
  addEntry(menuBar(), "MnuPri", kPrintButton, &Editor::MnuPri);
}

void FrmEdi::buildBoxes() {
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  TxtEdiOld_->setObjectName("TxtEdiOld");
  TxtEdi_->setObjectName("TxtEdi");
  for (EditorBox* box : {TxtEdiOld_, TxtEdi_}) {
    box->refused = [this] { services_.sound.beep(); };
    column->addWidget(box);
  }
  column->addWidget(find_);
  setCentralWidget(content);
}

void FrmEdi::buildPalette() {
  FraIns_ = new FraIns(this, toolkitFont(services_.FontEdit), toolkitFont(services_.FontLabel));
  FraIns_->chosen = [this](int cell) { services_.runEvent([&] { engine_.LblChr(cell); }); };
}

void FrmEdi::buildFinding() {
  const auto onKey = [this](QKeySequence::StandardKey key, auto action) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, [this, action] {
      if (FraIns_ == nullptr || !FraIns_->isVisible()) action();
    });
  };
  onKey(QKeySequence::Find, [this] { find_->open(box()); });
  onKey(QKeySequence::FindNext, [this] { find_->find(false); });
  onKey(QKeySequence::FindPrevious, [this] { find_->find(true); });
}

void FrmEdi::showEditor(const WindowText& caption, const PlainText& text, EditControl control) {
  control_ = control;
  const bool plain = control == EditControl::kTxtEdiOld;
  TxtEdiOld_->setVisible(plain);
  TxtEdi_->setVisible(!plain);
  MnuMod_->menuAction()->setEnabled(!plain);
  find_->hide();
  hidePalette();
  nameEditor(caption);
  box().setTextFont(toolkitFont(plain ? services_.FontEdit : kLargeFileFont));
  box().load(text);
  placeForm();
  show();
  raise();
  activateWindow();
  box().setFocus();
}

void FrmEdi::nameEditor(const WindowText& caption) {
  setWindowTitle(fromText(caption));
  setAccessibleName(windowTitle());
  box().setAccessibleName(windowTitle());
}

void FrmEdi::placeForm() {
  const Size frame = services_.windows.frame();
  const Size menus = toTwips(QSize(0, menuBar()->sizeHint().height()));
  const EditorLayout layout =
      layoutEditor(cellOf(box().font()), services_.windows.place(Form::kMain), frame + menus);
  resize(toPixels(layout.control + menus));
  services_.windows.settle(*this, Form::kMain, layout.form);
}

void FrmEdi::hideEditor() {
  hide();
}

void FrmEdi::focusEditor() {
  hidePalette();
  activateWindow();
  box().setFocus();
}

void FrmEdi::showPalette() {
  box().setEnabled(false);
  if (FraIns_ == nullptr) buildPalette();
  placePalette();
  FraIns_->show();
  FraIns_->raise();
  FraIns_->setFocus();
}

void FrmEdi::hidePalette() {
  if (FraIns_ != nullptr) FraIns_->hide();
  box().setEnabled(true);
  box().setFocus();
}

void FrmEdi::placePalette() {
  FraIns_->move(centralWidget()->geometry().center() - FraIns_->rect().center());
}

void FrmEdi::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (FraIns_ != nullptr) placePalette();
}

void FrmEdi::closeEvent(QCloseEvent* event) {
  event->ignore();
  services_.runEvent([this] { engine_.MnuFilRin(); });
}

}  // namespace vk
