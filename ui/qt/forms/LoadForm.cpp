#include "ui/qt/forms/LoadForm.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr int kDescriptionColumns = 60;
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
  text->setFixedHeight(toPixels(Twips(rows * cellOf(listFont()).height)) + 2 * text->frameWidth() + 10);
  return text;
}

QGroupBox* framed(const char* caption, QWidget* content) {
  auto* box = new QGroupBox(caption);
  auto* layout = new QVBoxLayout(box);
  layout->addWidget(content);
  return box;
}

}  // namespace

Loa_Fun::Loa_Fun(LoadFunction& engine, const Windows& windows, const FontSpec& font)
    : FunctionForm("Loa_Fun", kLoadCaption, windows, font),
      engine_(engine),
      LstFun_(makeList("LstFun", kDescriptionFrame, kDescriptionColumns)),
      TxtDef_(makeText(this, "TxtDef", kDefinitionFrame, kDefinitionRows)),
      TxtPar_(makeText(this, "TxtPar", kParametersFrame, kParameterRows)) {
  setManualTopic(*this, ManualTopic::kFunctionLoading);
  makeButtons();
  arrange();
  connect(LstFun_, &QListWidget::currentRowChanged, this,
          [this](int row) { handle([&] { engine_.select(row + 1), changed(); }); });
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
  TxtDef_->setPlainText(fromText(Cp437Text(engine_.entry().definition)));
  TxtPar_->setPlainText(fromText(Cp437Text(engine_.entry().parameters)));
}

int Loa_Fun::ask() {
  return runModal(*LstFun_) ? engine_.selected() : 0;
}

}  // namespace vk
