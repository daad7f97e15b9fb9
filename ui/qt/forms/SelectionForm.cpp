#include "ui/qt/forms/SelectionForm.h"

#include <QGridLayout>
#include <QLabel>

#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr int kColumns = 24;
constexpr int kTextColumns = 62;

QLabel* heading(QWidget* form, const char* text, QListWidget* list = nullptr) {
  auto* label = new QLabel(text, form);
  label->setTextFormat(Qt::PlainText);
  if (list != nullptr) label->setBuddy(list);
  return label;
}

}  // namespace

Sel_Fun::Sel_Fun(SelectFunction& engine, const Windows& windows, const FontSpec& font)
    : FunctionForm("Sel_Fun", kSelectCaption, windows, font),
      engine_(engine),
      LstOut_(makeList("LstOut", kOuterHeading, kColumns)),
      LstInn_(makeList("LstInn", kInnerHeading, kColumns)),
      TxtFun_(new QLineEdit(this)) {
  setManualTopic(*this, ManualTopic::kFunctionChoice);
  TxtFun_->setObjectName("TxtFun");
  TxtFun_->setAccessibleName(kSelectHeading);
  TxtFun_->setReadOnly(true);
  TxtFun_->setFocusPolicy(Qt::ClickFocus);
  TxtFun_->setFont(listFont());
  TxtFun_->setMinimumWidth(toPixels(Twips(kTextColumns * cellOf(listFont()).width)));
  makeButtons();
  arrange();
  connect(LstOut_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!syncing_ && row >= 0) handle([&] { engine_.selectOuter(row + 1), changed(); });
  });
  connect(LstInn_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!syncing_ && row >= 0) handle([&] { engine_.selectInner(row + 1), changed(); });
  });
}

void Sel_Fun::arrange() {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(2 * kSpace, 2 * kSpace, 2 * kSpace, 2 * kSpace);
  grid->setSpacing(kSpace);
  grid->addWidget(heading(this, kSelectHeading), 0, 0, 1, 2, Qt::AlignHCenter);
  grid->addWidget(heading(this, kOuterHeading, LstOut_), 1, 0, Qt::AlignHCenter);
  grid->addWidget(heading(this, kInnerHeading, LstInn_), 1, 1, Qt::AlignHCenter);
  grid->addWidget(LstOut_, 2, 0);
  grid->addWidget(LstInn_, 2, 1);
  grid->addWidget(TxtFun_, 3, 0, 1, 2);
  grid->addWidget(CmdAcc_, 4, 0, Qt::AlignHCenter);
  grid->addWidget(CmdRin_, 4, 1, Qt::AlignHCenter);
  grid->setSizeConstraint(QLayout::SetFixedSize);
}

void Sel_Fun::refill() {
  syncing_ = true;
  engine_.refill();
  fillList(*LstOut_, engine_.outerList());
  fillList(*LstInn_, engine_.innerList());
  syncing_ = false;
}

void Sel_Fun::changed() {
  TxtFun_->setText(fromText(Cp437Text(engine_.text())));
  TxtFun_->setCursorPosition(0);
}

bool Sel_Fun::ask() {
  engine_.open();
  syncing_ = true;
  LstOut_->setCurrentRow(0);
  LstInn_->setCurrentRow(0);
  syncing_ = false;
  changed();
  const bool accepted = runModal(*LstOut_);
  if (!accepted) engine_.giveUp();
  changed();
  return accepted;
}

}  // namespace vk
