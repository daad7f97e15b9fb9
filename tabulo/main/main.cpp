#include <QApplication>

#include "tabulo/Tabulo.h"
#include "ui/qt/widgets/ToolkitSetup.h"

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  vk::setUpToolkit(toolkit);
  toolkit.setQuitOnLastWindowClosed(true);
  vk::Tabulo window;
  window.show();
  return QCoreApplication::exec();
}
