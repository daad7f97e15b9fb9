#include "ui/qt/forms/InputForm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>

#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/GridPainter.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr Colour kSurface = Colour::fromChannels(214, 221, 228);

QPushButton* makeButton(QWidget* form, const char* name, const WindowText& caption) {
  auto* button = new AccessButton(form);
  button->setObjectName(name);
  button->setText(fromCaption(caption));
  button->setFont(formButtonFont());
  // The mouse presses a button without taking the focus from the field, which is validated once, by the button.
  button->setFocusPolicy(Qt::TabFocus);
  button->setAutoDefault(true);
  return button;
}

}  // namespace

InpFrm::InpFrm(InpMod& engine, const Windows& windows, MainWindow& window)
    : QWidget(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      engine_(engine),
      windows_(windows),
      window_(window),
      txtGet_(new EntryBox(this)),
      cmdRin_(makeButton(this, "cmdRin", kGiveUpButton)),
      cmdEse_(makeButton(this, "cmdEse", kExecuteButton)) {
  setObjectName("InpFrm");
  setFont(formFont());
  setWindowModality(Qt::ApplicationModal);
  setAttribute(Qt::WA_OpaquePaintEvent);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, toColour(kSurface));
  setPalette(colours);
  connect(cmdRin_, &QPushButton::clicked, this, [this] { loop_.handle([this] { rinuncia(); }); });
  connect(cmdEse_, &QPushButton::clicked, this, [this] { loop_.handle([this] { esegui(); }); });
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* from, QWidget* to) { loop_.handle([&] { focusMoved(from, to); }); });
  txtGet_->typed = [this](const Cp437Text& text) { engine_.setEditText(text); };
  txtGet_->keyDown = [this](int code) {
    bool moved = false;
    loop_.handle([&] { moved = engine_.keyDown(code); });
    if (moved) sync();
    return moved;
  };
}

bool InpFrm::InpShow(InputTables& tables, Form caller) {
  executed_ = false;
  askShut(tables, caller);
  if (QWidget* owner = windows_.shown(caller)) owner->activateWindow();
  return executed_;
}

/// Waits for the user with the main window shut.
void InpFrm::askShut(InputTables& tables, Form caller) {
  const ShutWindow shut(window_, Form::kInput);
  build(tables, caller);
  show();
  raise();
  activateWindow();
  txtGet_->setFocus();
  loop_.run(*this);
}

void InpFrm::build(InputTables& tables, Form caller) {
  const FontMeasure grid(font(), FontMeasure::Texts::kGrid);
  const FontMeasure button(formButtonFont(), FontMeasure::Texts::kGrid);
  engine_.open(tables, {windows_.place(caller), windows_.frame(), &grid, &button});
  const InputLayout& layout = engine_.layout();
  setManualTopic(*this, tables.topic);
  setWindowTitle(fromText(tables.caption));
  setAccessibleName(windowTitle());
  size_ = toPixels(layout.form.size() - windows_.frame());
  setFixedSize(size_);
  windows_.settle(*this, caller, layout.form);
  cmdRin_->setGeometry(toPixels(layout.cmdRin));
  cmdEse_->setGeometry(toPixels(layout.cmdEse));
  buildFields(tables);
  sync();
}

void InpFrm::buildFields(const InputTables& tables) {
  qDeleteAll(lblVal_);
  lblVal_.clear();
  const InputLayout& layout = engine_.layout();
  for (std::size_t i = 0; i < layout.lblVal.size(); ++i) {
    const int field = static_cast<int>(i);
    auto* label = new ValueCell(this, layout.cell, engine_.flushRight(field), kInpColorField);
    label->setObjectName(QString("lblVal(%1)").arg(field));
    label->setGeometry(toPixels(layout.lblVal[i]));
    label->setVisible(field > 0);
    if (field > 0) label->setAccessibleName(fromText(tables.InpLabels[field]));
    label->clicked = [this, field] {
      loop_.handle([&] { engine_.GoToField(field); });
      sync();
    };
    lblVal_.push_back(label);
  }
  setTabOrder(txtGet_, cmdRin_);
  setTabOrder(cmdRin_, cmdEse_);
}

void InpFrm::sync() {
  for (std::size_t i = 1; i < lblVal_.size(); ++i) lblVal_[i]->setText(engine_.caption(static_cast<int>(i)));
  txtGet_->show(engine_.editBox());
  // What is typed on a field replaces its content; a refused text stays to be corrected.
  if (engine_.InpValid) txtGet_->selectAll();
  if (engine_.InpCurrent > 0) {
    txtGet_->setAccessibleName(lblVal_[static_cast<std::size_t>(engine_.InpCurrent)]->accessibleName());
  }
}

void InpFrm::focusMoved(QWidget* from, QWidget* to) {
  // Another window, a menu or a box may take the focus for a while: the field is left only for a control of
  // this form.
  if (!loop_.isRunning() || from != txtGet_ || to == nullptr || to->window() != this) return;
  const bool left = engine_.lostFocus();
  sync();
  if (!left) txtGet_->setFocus();
}

void InpFrm::esegui() {
  const bool good = engine_.execute();
  sync();
  txtGet_->setFocus();
  if (!good) return;
  executed_ = true;
  loop_.finish();
}

void InpFrm::rinuncia() {
  txtGet_->setFocus();
  loop_.finish();
}

void InpFrm::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), toColour(kSurface));
  const InputLayout& layout = engine_.layout();
  GridPainter grid(painter, font(), layout.cell);
  for (const PlacedText& prompt : layout.prompts) grid.text(prompt.left, prompt.top, prompt.text, kSurface);
  for (const GridFrame& frame : layout.frames) grid.frame(frame, kSurface);
  for (const PlacedText& text : layout.texts) grid.text(text.left, text.top, text.text, kSurface);
}

void InpFrm::resizeEvent(QResizeEvent*) {
  if (size() != size_) resize(size_);
}

void InpFrm::closeEvent(QCloseEvent* event) {
  event->ignore();
  loop_.handle([this] { rinuncia(); });
}

}  // namespace vk
