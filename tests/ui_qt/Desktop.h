#pragma once

#include <QUrl>
#include <vector>

#include "base/RuntimeError.h"
#include "doubles/TemporaryFolder.h"
#include "platform/system/SystemFiles.h"
#include "session/Session.h"
#include "ui/qt/main/Application.h"
#include "ui_qt/User.h"

namespace vk {

/// The disk of the machine, with the program in a folder of the test and the volumes that the test names.
class DesktopFiles : public SystemFiles {
 public:
  explicit DesktopFiles(std::string folder) : programs(folder), folder_(std::move(folder)) {}
  std::string programFolder() override { return programs; }
  std::string documentsFolder() override { return folder_; }
  bool startedAtTerminal() override { return false; }
  std::vector<std::string> drives() override { return volumes; }

  std::int64_t size(const std::string& path) override { return access(), SystemFiles::size(path); }
  std::string readAll(const std::string& path) override { return access(), SystemFiles::readAll(path); }
  void writeAll(const std::string& path, std::string_view bytes) override {
    if (fullFor-- > 0) throw RuntimeError(kDeviceIoError);
    access(), SystemFiles::writeAll(path, bytes);
  }
  std::vector<std::string> subfolders(const std::string& folder) override {
    return access(), SystemFiles::subfolders(folder);
  }

  std::vector<std::string> volumes{"/"};
  std::string programs;            ///< the folder of the program
  int fullFor = 0;                 ///< so many writes find the disk full
  std::function<void()> onAccess;  ///< what it throws is the error of the disk

 private:
  void access() {
    if (onAccess) onAccess();
  }

  std::string folder_;
};

/// Starts programs; what it is to show is written down.
class DesktopProcess : public QtProcess {
 public:
  std::vector<std::string> shown;  ///< files, with "#" before their headings
  bool show(const std::string& path, const std::string& heading) override {
    shown.push_back(path + "#" + heading);
    return true;
  }
};

/// The whole program with somebody in front of it. It prints to files.
class Desktop : public testing::Test {
 protected:
  /// Starts the program and answers the welcome.
  void start();
  /// Runs the steps that the user has been given.
  void act() { user.finish(); }
  /// Drops on the main window what a file manager would; true when the window takes it.
  bool drop(const QList<QUrl>& urls);
  bool drop(const std::vector<std::string>& names);
  /// Drops files that are taken, and runs the steps of the user meanwhile.
  void open(const std::vector<std::string>& names);
  /// Enters the texts of the input form field by field.
  void enterFields(const std::vector<QString>& fields);
  /// The same, and presses "&Esegui".
  void fillForm(const std::vector<QString>& fields);
  /// Chooses f and g by their places in the lists, from 0.
  void chooseFunction(int outer, int inner);
  /// Answers a plain box and keeps its text.
  void answerBox();

  Vor_Kel& window() { return application.window(); }
  Session& session() { return application.session(); }
  bool menuOn(const QString& name);
  QString panel(int number) {
    return control<QLabel>(&window(), QString("StatusBar1(%1)").arg(number))->text();
  }

  TemporaryFolder folder;
  DesktopFiles files{folder.path()};
  std::vector<int> exitCodes;
  std::vector<QString> boxes;
  DesktopProcess process;
  std::function<bool()> hasPrinter = [] { return false; };  ///< a test may say yes; nothing is printed then
  Application application{files, process, [this](int code) { exitCodes.push_back(code); },
                          [this] { return hasPrinter(); }};
  User user;
};

/// Nine points on the line 2x + 1, with errors, as a data file.
std::string lineData();

}  // namespace vk
