#include <QApplication>

#include "platform/system/SystemFiles.h"
#include "tabulo/Tabulo.h"
#include "ui/qt/widgets/DesktopServices.h"
#include "ui/qt/widgets/ToolkitSetup.h"

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  vk::setUpToolkit(toolkit);
  toolkit.setWindowIcon(QIcon::fromTheme("tabulo", toolkit.windowIcon()));
  toolkit.setQuitOnLastWindowClosed(true);
  vk::SystemFiles files;
  vk::QtProcess process;
  vk::Tabulo window(files, process);
  window.show();
  return QCoreApplication::exec();
}
