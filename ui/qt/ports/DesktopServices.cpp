#include "ui/qt/ports/DesktopServices.h"

#include <QApplication>
#include <QProcess>
#include <QScreen>

#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {

void QtSound::beep() {
  QApplication::beep();
}

bool QtProcess::start(const std::string& program) {
  return QProcess::startDetached(fromFileName(program), {});
}

int QtScreen::width() {
  return toTwips(QGuiApplication::primaryScreen()->geometry().width());
}

int QtScreen::height() {
  return toTwips(QGuiApplication::primaryScreen()->geometry().height());
}

int QtScreen::TwipsPerPixelX() {
  return kTwipsPerPixel;
}

int QtScreen::TwipsPerPixelY() {
  return kTwipsPerPixel;
}

}  // namespace vk
