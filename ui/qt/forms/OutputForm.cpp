#include "ui/qt/forms/OutputForm.h"

#include <QCloseEvent>

#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/HelpKey.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

/// Height of the buttons, and what stands beside the widest caption.
constexpr double kBandButtonHeight = 405;
constexpr double kButtonPadding = 480;
/// Buttons of a narrow window have less padding rather than touch each other.
constexpr double kButtonGap = 120;

}  // namespace

FrmOut::FrmOut(const OutputServices& services)
    : QWidget(nullptr, kOwnedWindow),
      services_(services),
      surface_(new OutputSurface(this, model_.grid())),
      text_(new QPlainTextEdit(this)) {
  setObjectName("FrmOut");
  QPalette colours = palette();
  colours.setColor(QPalette::Window, Qt::white);
  setPalette(colours);
  text_->setObjectName("TxtOut");
  text_->setReadOnly(true);
  text_->setTabChangesFocus(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, [this] { pressFirst(); });
  }
  for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Menu}) {
    detailKeys_.push_back(new QShortcut(key, this));
    connect(detailKeys_.back(), &QShortcut::activated, this,
            [this] { services_.runEvent(model_.detail().open); });
  }
}

void FrmOut::OutShow(const OutputRequest& request) {
  model_.OutShow(request);
  showDetail();
  setFont(toolkitFont(services_.FontEdit));
  cell_ = cellOf(font());
  setManualTopic(*this, request.topic);
  setWindowTitle(fromText(request.caption));
  setAccessibleName(windowTitle());

  double widest = 0;
  const QFont buttonFont = toolkitFont(services_.FontLabel);
  for (const WindowText& caption : request.captions) {
    widest = std::max(widest, FontMeasure(buttonFont).width(caption.bytes()).value());
  }
  double buttonWidth = widest + kButtonPadding;
  if (!request.captions.empty()) {
    const double strip = request.cols * cell_.width / static_cast<double>(request.captions.size());
    buttonWidth = std::max(widest, std::min(buttonWidth, strip - kButtonGap));
  }
  const OutputLayout layout = model_.layout(
      cell_,
      {services_.windows.place(request.owner), services_.windows.frame(), {buttonWidth, kBandButtonHeight}});
  setFixedSize(toPixels(layout.form.size() - services_.windows.frame()));
  showContent();
  showButtons(layout);
  services_.windows.settle(*this, request.owner, layout.form);
  setEnabled(true);
  show();
  raise();
  activateWindow();
  changed();
}

void FrmOut::setDetail(OutputDetail detail) {
  model_.setDetail(std::move(detail));
  showDetail();
}

void FrmOut::showDetail() {
  const OutputDetail& detail = model_.detail();
  surface_->setToolTip(fromText(detail.meaning));
  setAccessibleDescription(fromText(detail.meaning));
  for (QShortcut* key : detailKeys_) key->setEnabled(detail.open != nullptr);
}

void FrmOut::showContent() {
  const QRect place(0, 0, toPixels(Twips(model_.OutPixelW)), toPixels(Twips(model_.OutPixelH)));
  surface_->setGeometry(place);
  surface_->setCell(cell_);
  surface_->setAccessibleName(windowTitle());
  surface_->setVisible(!model_.OutTextMode);
  text_->setGeometry(place);
  text_->setFont(font());
  text_->setVisible(model_.OutTextMode != kFalse);
  text_->setPlainText(model_.OutTextMode ? fromText(model_.request().text) : QString());
  text_->setAccessibleName(windowTitle());
}

void FrmOut::addButton() {
  const int index = static_cast<int>(buttons_.size());
  auto* button = new AccessButton(this);
  button->setObjectName(QString("CmdOut(%1)").arg(index));
  button->setFont(toolkitFont(services_.FontLabel));
  connect(button, &QPushButton::clicked, this,
          [this, index] { services_.runEvent([&] { pressed(index); }); });
  buttons_.push_back(button);
}

void FrmOut::showButtons(const OutputLayout& layout) {
  for (QPushButton* button : buttons_) button->hide();
  for (std::size_t i = 0; i < layout.buttons.size(); ++i) {
    if (i == buttons_.size()) addButton();
    buttons_[i]->setText(fromCaption(model_.request().captions[i]));
    buttons_[i]->setGeometry(toPixels(layout.buttons[i]));
    buttons_[i]->show();
  }
  if (!layout.buttons.empty()) buttons_.front()->setFocus();
}

void FrmOut::changed() {
  surface_->update();
}

void FrmOut::pressed(int index) {
  switch (outputCommand(model_.request().captions.at(static_cast<std::size_t>(index)))) {
    case OutputCommand::kContinue:
      return FrmOut_Exit();
    case OutputCommand::kPrint:
      return model_.printOn(services_.printer, services_.FontEdit);
    case OutputCommand::kCopy:
      return model_.copyTo(services_.clipboard);
    case OutputCommand::kSaveFile:
      if (model_.saveRoutine()) model_.saveRoutine()();
      return FrmOut_Exit();
    case OutputCommand::kNone:
      return;
  }
}

/// What Enter does, wherever the focus is.
void FrmOut::pressFirst() {
  if (model_.OutButtons > 0) buttons_.front()->click();
}

void FrmOut::FrmOut_Exit() {
  if (!model_.isOpen()) return;
  model_.FrmOut_Exit();
  setEnabled(false);
  hide();
  for (QPushButton* button : buttons_) button->hide();
  if (QWidget* owner = services_.windows.atWork(model_.request().owner)) {
    owner->update();
    owner->activateWindow();
  }
}

void FrmOut::closeEvent(QCloseEvent* event) {
  event->ignore();
  // A window without buttons belongs to the command that opened it.
  if (model_.OutButtons > 0) FrmOut_Exit();
}

}  // namespace vk
