#include <QApplication>

#include "ui/qt/main/Application.h"
#include "ui/qt/widgets/ToolkitSetup.h"

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  vk::setUpToolkit(toolkit);
  vk::SystemFiles files;
  vk::QtProcess process;
  bool ended = false;
  int exitCode = 0;
  vk::Application application(files, process, [&](int code) {
    ended = true;
    exitCode = code;
    QCoreApplication::exit(code);
  });
  files.onLongRead = [&] { application.showWaitCursor(); };
  application.StartUp();
  // What begins with "-" is meant for programs that have options.
  std::vector<std::string> names(argv + 1, argv + argc);
  std::erase_if(names, [](const std::string& name) { return name.starts_with('-'); });
  if (!ended) application.open(names);
  return ended ? exitCode : QCoreApplication::exec();
}
