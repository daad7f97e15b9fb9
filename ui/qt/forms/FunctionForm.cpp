#include "ui/qt/forms/FunctionForm.h"

#include <QCloseEvent>

#include "platform/Texts.h"
#include "ui/SelectFunction.h"
#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr int kRows = 10;

}  // namespace

FunctionForm::FunctionForm(const char* name, const char* caption, const Windows& windows,
                           const FontSpec& font)
    : QWidget(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint), windows_(windows) {
  setObjectName(name);
  setFont(toolkitFont(font));
  setWindowTitle(caption);
  setAccessibleName(caption);
  setWindowModality(Qt::ApplicationModal);
}

QListWidget* FunctionForm::makeList(const char* name, const char* meaning, int columns) {
  auto* list = new QListWidget(this);
  list->setObjectName(name);
  list->setAccessibleName(meaning);
  list->setFont(listFont());
  const CellSize cell = cellOf(listFont());
  list->setFixedHeight(toPixels(Twips(kRows * cell.height)) + 2 * list->frameWidth() + 8);
  list->setMinimumWidth(toPixels(Twips(columns * cell.width)));
  return list;
}

void FunctionForm::makeButtons() {
  CmdAcc_ = makeButton("CmdAcc", kAcceptButton, true);
  CmdRin_ = makeButton("CmdRin", kGiveUpButton, false);
}

QPushButton* FunctionForm::makeButton(const char* name, const WindowText& caption, bool accepts) {
  auto* button = new AccessButton(fromCaption(caption), this);
  button->setObjectName(name);
  button->setAutoDefault(true);
  connect(button, &QPushButton::clicked, this, [this, accepts] { end(accepts); });
  return button;
}

bool FunctionForm::runModal(QWidget& first) {
  adjustSize();
  const Size outer = toTwips(size()) + windows_.frame();
  windows_.settle(*this, Form::kMain, placeBeside(windows_.place(Form::kMain), outer));
  accepted_ = false;
  show();
  raise();
  activateWindow();
  first.setFocus();
  loop_.run(*this);
  return accepted_;
}

void FunctionForm::end(bool accepted) {
  accepted_ = accepted;
  loop_.finish();
}

void FunctionForm::closeEvent(QCloseEvent* event) {
  event->ignore();
  end(false);
}

void fillList(QListWidget& list, const std::vector<std::string>& texts) {
  list.clear();
  for (const std::string& text : texts) list.addItem(fromText(Cp437Text(text)));
}

}  // namespace vk
