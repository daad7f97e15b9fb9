#include <QApplication>

#include "tabulo/Tabulo.h"
#include "ui/qt/widgets/ToolkitSetup.h"

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  vk::setUpToolkit(toolkit);
  toolkit.setWindowIcon(QIcon::fromTheme("tabulo", toolkit.windowIcon()));
  toolkit.setQuitOnLastWindowClosed(true);
  vk::Tabulo window;
  window.show();
  return QCoreApplication::exec();
}
