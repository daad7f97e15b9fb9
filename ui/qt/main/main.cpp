#include <QApplication>

#include "ui/qt/main/Application.h"
#include "ui/qt/widgets/ToolkitSetup.h"

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  vk::setUpToolkit(toolkit);
  vk::SystemFiles files;
  bool ended = false;
  int exitCode = 0;
  vk::Application application(files, [&](int code) {
    ended = true;
    exitCode = code;
    QCoreApplication::exit(code);
  });
  files.onLongRead = [&] { application.showWaitCursor(); };
  application.StartUp();
  return ended ? exitCode : QCoreApplication::exec();
}
