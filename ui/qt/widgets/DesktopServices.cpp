#include "ui/qt/widgets/DesktopServices.h"

#include <QApplication>
#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "ui/qt/widgets/TextConversion.h"

namespace vk {

void QtSound::beep() {
  QApplication::beep();
}

bool QtProcess::start(const std::string& program) {
  return QProcess::startDetached(fromFileName(program), {});
}

bool QtProcess::show(const std::string& path, const std::string& heading) {
  QUrl page = QUrl::fromLocalFile(fromFileName(path));
  if (!heading.empty()) page.setFragment(QString::fromStdString(heading));
  return QDesktopServices::openUrl(page);
}

}  // namespace vk
