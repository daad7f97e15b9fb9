#include "ui/qt/forms/MessageForm.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QPainter>

#include "ui/qt/widgets/AccessButton.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/Pictures.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr int kIconPixels = 32;
constexpr double kButtonHeight = 405;
/// What a title bar needs beside its text: the icon and the buttons of the window system.
constexpr int kTitleBarRest = 90;
constexpr std::array<const char*, 4> kIconNames{"ImgDom", "ImgEsc", "ImgInf", "ImgStp"};
constexpr std::size_t kLastingButtons = 2;

}  // namespace

FrmMsg::FrmMsg(const Windows& windows, const FontSpec& font)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), windows_(windows) {
  setObjectName("FrmMsg");
  setFont(toolkitFont(font));
  setWindowModality(Qt::ApplicationModal);
  for (std::size_t i = 0; i < icons_.size(); ++i) {
    icons_[i] = new QLabel(this);
    icons_[i]->setObjectName(kIconNames[i]);
    icons_[i]->hide();
  }
  for (std::size_t i = 0; i < kLastingButtons; ++i) addButton();
}

void FrmMsg::addButton() {
  const int number = static_cast<int>(buttons_.size()) + 1;
  auto* button = new AccessButton(this);
  button->setObjectName(QString("CmdMsg(%1)").arg(number - 1));
  button->setAutoDefault(true);
  button->hide();
  connect(button, &QPushButton::clicked, this, [this, number] {
    Pressed = number;
    loop_.finish();
  });
  buttons_.push_back(button);
}

int FrmMsg::ask(const MessageRequest& request) {
  Pressed = 0;
  build(request);
  show();
  raise();
  activateWindow();
  loop_.run(*this);
  while (buttons_.size() > kLastingButtons) {
    delete buttons_.back();
    buttons_.pop_back();
  }
  if (QWidget* owner = windows_.shown(request.owner)) {
    owner->update();
    owner->activateWindow();
  }
  return Pressed;
}

MessageSurroundings FrmMsg::surroundings(const MessageRequest& request) const {
  QFont title = font();
  title.setBold(true);
  const Twips captionWidth = FontMeasure(title).width(request.caption.bytes()) + toTwips(kTitleBarRest);
  return {windows_.place(request.owner),
          windows_.screenSize(request.owner),
          windows_.frame(),
          toTwips(QSize(kIconPixels, kIconPixels)),
          kButtonHeight,
          captionWidth.value()};
}

void FrmMsg::build(const MessageRequest& request) {
  layout_ = layoutMessage(request, FontMeasure(font()), surroundings(request));
  setWindowTitle(fromText(request.caption));
  setAccessibleName(windowTitle());
  setAccessibleDescription(fromText(request.text));
  setFixedSize(toPixels(layout_.content));
  windows_.settle(*this, request.owner, layout_.form);
  showIcon(request.icon);
  showButtons(request);
  update();
}

void FrmMsg::showIcon(int icon) {
  for (std::size_t i = 0; i < icons_.size(); ++i) {
    const bool chosen = icon == static_cast<int>(i) + 1;
    icons_[i]->setVisible(chosen);
    if (!chosen) continue;
    icons_[i]->setGeometry(toPixels(layout_.icon));
    icons_[i]->setPixmap(dialogIcon(icon, kIconPixels, devicePixelRatioF()));
  }
}

void FrmMsg::showButtons(const MessageRequest& request) {
  for (QPushButton* button : buttons_) button->hide();
  for (std::size_t i = 0; i < request.captions.size(); ++i) {
    if (i == buttons_.size()) addButton();
    QPushButton* button = buttons_[i];
    button->setText(fromCaption(request.captions[i]));
    button->setGeometry(toPixels(layout_.buttons[i]));
    button->show();
  }
  if (!request.captions.empty()) buttons_.front()->setFocus();
}

void FrmMsg::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  QPainter painter(this);
  const int ascent = QFontMetrics(font()).ascent();
  for (const MessageLine& line : layout_.lines) {
    painter.drawText(toPixels(Twips(line.left), Twips(line.top)) + QPoint(0, ascent),
                     fromText(WindowText(line.text)));
  }
}

void FrmMsg::closeEvent(QCloseEvent* event) {
  event->ignore();
}

}  // namespace vk
