#include "ui/qt/Sel_Fun.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>

#include "ui/qt/AccessButton.h"
#include "ui/qt/Fonts.h"
#include "ui/qt/Text8.h"
#include "ui/qt/Twips.h"

namespace vk {
namespace {

constexpr int kSpace = 12;
constexpr int kColumns = 24;
constexpr int kRows = 10;
constexpr int kTextColumns = 62;

QListWidget* makeList(QWidget* form, const char* name, const char* heading) {
  auto* list = new QListWidget(form);
  list->setObjectName(name);
  list->setAccessibleName(heading);
  list->setFont(listFont());
  const CellSize cell = cellOf(listFont());
  list->setFixedHeight(toPixels(kRows * cell.height) + 2 * list->frameWidth() + 8);
  list->setMinimumWidth(toPixels(kColumns * cell.width));
  return list;
}

QPushButton* makeButton(QWidget* form, const char* name, const char* caption) {
  auto* button = new AccessButton(fromCaption(caption), form);
  button->setObjectName(name);
  button->setAutoDefault(true);
  return button;
}

QLabel* heading(QWidget* form, const char* text, QListWidget* list = nullptr) {
  auto* label = new QLabel(text, form);
  label->setTextFormat(Qt::PlainText);
  label->setFont(listFont());
  if (list != nullptr) label->setBuddy(list);
  return label;
}

}  // namespace

void fillList(QListWidget& list, const std::vector<std::string>& texts) {
  list.clear();
  for (const std::string& text : texts) list.addItem(fromCp437(text));
}

Sel_Fun::Sel_Fun(SelectFunction& engine, const Windows& windows)
    : QWidget(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      engine_(engine),
      windows_(windows),
      LstOut_(makeList(this, "LstOut", kOuterHeading)),
      LstInn_(makeList(this, "LstInn", kInnerHeading)),
      TxtFun_(new QLineEdit(this)),
      CmdAcc_(makeButton(this, "CmdAcc", kAcceptCaption)),
      CmdRin_(makeButton(this, "CmdRin", kGiveUpCaption)) {
  setObjectName("Sel_Fun");
  setWindowTitle(kSelectCaption);
  setAccessibleName(kSelectCaption);
  setWindowModality(Qt::ApplicationModal);
  TxtFun_->setObjectName("TxtFun");
  TxtFun_->setAccessibleName(kSelectHeading);
  TxtFun_->setReadOnly(true);
  TxtFun_->setFocusPolicy(Qt::ClickFocus);
  TxtFun_->setFont(listFont());
  TxtFun_->setMinimumWidth(toPixels(kTextColumns * cellOf(listFont()).width));
  arrange();
  connect(LstOut_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!syncing_ && row >= 0) loop_.handle([&] { engine_.selectOuter(row + 1), changed(); });
  });
  connect(LstInn_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!syncing_ && row >= 0) loop_.handle([&] { engine_.selectInner(row + 1), changed(); });
  });
  connect(CmdAcc_, &QPushButton::clicked, this, [this] { end(true); });
  connect(CmdRin_, &QPushButton::clicked, this, [this] { end(false); });
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
  TxtFun_->setText(fromCp437(engine_.text()));
  TxtFun_->setCursorPosition(0);
}

bool Sel_Fun::ask() {
  engine_.open();
  syncing_ = true;
  LstOut_->setCurrentRow(0);
  LstInn_->setCurrentRow(0);
  syncing_ = false;
  changed();
  adjustSize();
  const Size frame = windows_.frame();
  const Size outer{toTwips(width()) + frame.width, toTwips(height()) + frame.height};
  windows_.settle(*this, Form::kMain, placeBeside(windows_.place(Form::kMain), outer));
  accepted_ = false;
  show();
  raise();
  activateWindow();
  LstOut_->setFocus();
  loop_.run();
  hide();
  if (!accepted_) engine_.giveUp();
  changed();
  return accepted_;
}

void Sel_Fun::end(bool accepted) {
  accepted_ = accepted;
  loop_.finish();
}

void Sel_Fun::closeEvent(QCloseEvent* event) {
  event->ignore();
  end(false);
}

}  // namespace vk
