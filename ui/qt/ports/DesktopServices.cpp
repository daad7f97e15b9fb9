#include "ui/qt/ports/DesktopServices.h"

#include <QApplication>
#include <QProcess>

#include "ui/qt/widgets/TextConversion.h"

namespace vk {

void QtSound::beep() {
  QApplication::beep();
}

bool QtProcess::start(const std::string& program) {
  return QProcess::startDetached(fromFileName(program), {});
}

}  // namespace vk
