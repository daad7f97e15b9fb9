#include "ui/qt/Loa_Fun.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include "ui/SelectFunction.h"
#include "ui/qt/AccessButton.h"
#include "ui/qt/Fonts.h"
#include "ui/qt/Sel_Fun.h"
#include "ui/qt/Text8.h"
#include "ui/qt/Twips.h"

namespace vk {
namespace {

constexpr int kSpace = 12;
constexpr int kRows = 10;
constexpr int kColumns = 60;
constexpr int kDefinitionRows = 3;
constexpr int kParameterRows = 1;

/// A read-only text that wraps anywhere, as formulas have no blanks.
QPlainTextEdit* makeText(QWidget* form, const char* name, const char* meaning, int rows) {
  auto* text = new QPlainTextEdit(form);
  text->setObjectName(name);
  text->setAccessibleName(meaning);
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setFont(listFont());
  text->setWordWrapMode(QTextOption::WrapAnywhere);
  text->setFixedHeight(toPixels(rows * cellOf(listFont()).height) + 2 * text->frameWidth() + 10);
  return text;
}

QPushButton* makeButton(QWidget* form, const char* name, const char* caption) {
  auto* button = new AccessButton(fromCaption(caption), form);
  button->setObjectName(name);
  button->setAutoDefault(true);
  return button;
}

QGroupBox* framed(const char* caption, QWidget* content) {
  auto* box = new QGroupBox(caption);
  auto* layout = new QVBoxLayout(box);
  layout->addWidget(content);
  return box;
}

}  // namespace

Loa_Fun::Loa_Fun(LoadFunction& engine, const Windows& windows)
    : QWidget(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      engine_(engine),
      windows_(windows),
      LstFun_(new QListWidget(this)),
      TxtDef_(makeText(this, "TxtDef", kDefinitionFrame, kDefinitionRows)),
      TxtPar_(makeText(this, "TxtPar", kParametersFrame, kParameterRows)),
      CmdAcc_(makeButton(this, "CmdAcc", kAcceptCaption)),
      CmdRin_(makeButton(this, "CmdRin", kGiveUpCaption)) {
  setObjectName("Loa_Fun");
  setWindowTitle(kLoadCaption);
  setAccessibleName(kLoadCaption);
  setWindowModality(Qt::ApplicationModal);
  LstFun_->setObjectName("LstFun");
  LstFun_->setAccessibleName(kDescriptionFrame);
  LstFun_->setFont(listFont());
  const CellSize cell = cellOf(listFont());
  LstFun_->setFixedHeight(toPixels(kRows * cell.height) + 2 * LstFun_->frameWidth() + 8);
  LstFun_->setMinimumWidth(toPixels(kColumns * cell.width));
  arrange();
  connect(LstFun_, &QListWidget::currentRowChanged, this, [this](int row) {
    engine_.select(row + 1);
    changed();
  });
  connect(CmdAcc_, &QPushButton::clicked, this, [this] { end(true); });
  connect(CmdRin_, &QPushButton::clicked, this, [this] { end(false); });
}

void Loa_Fun::arrange() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(2 * kSpace, 2 * kSpace, 2 * kSpace, 2 * kSpace);
  column->setSpacing(kSpace);
  column->addWidget(framed(kDescriptionFrame, LstFun_));
  column->addWidget(framed(kDefinitionFrame, TxtDef_));
  column->addWidget(framed(kParametersFrame, TxtPar_));
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {CmdAcc_, CmdRin_}) {
    buttons->addStretch();
    buttons->addWidget(button);
  }
  buttons->addStretch();
  column->addLayout(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

void Loa_Fun::refill() {
  engine_.refill();
  fillList(*LstFun_, engine_.list());
  LstFun_->setCurrentRow(LstFun_->count() > 0 ? 0 : -1);
}

void Loa_Fun::changed() {
  TxtDef_->setPlainText(fromCp437(engine_.definition()));
  TxtPar_->setPlainText(fromCp437(engine_.parameters()));
}

int Loa_Fun::ask() {
  adjustSize();
  const Size frame = windows_.frame();
  const Size outer{toTwips(width()) + frame.width, toTwips(height()) + frame.height};
  windows_.settle(*this, Form::kMain, placeBeside(windows_.place(Form::kMain), outer));
  accepted_ = false;
  show();
  raise();
  activateWindow();
  LstFun_->setFocus();
  loop_.run();
  hide();
  return accepted_ ? engine_.selected() : 0;
}

void Loa_Fun::end(bool accepted) {
  accepted_ = accepted;
  loop_.finish();
}

void Loa_Fun::closeEvent(QCloseEvent* event) {
  event->ignore();
  end(false);
}

}  // namespace vk
