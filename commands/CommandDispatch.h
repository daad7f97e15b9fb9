/// Unit MainMod: the start-up, and which command each menu entry runs.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "commands/CommandTable.h"

namespace vk {

struct Session;

/// Starts the program and runs the commands of the menus, one at a time.
class MainMod {
 public:
  MainMod(Session& session, Ports ports) : session_(session), ports_(std::move(ports)) {}
  MainMod(const MainMod&) = delete;
  MainMod& operator=(const MainMod&) = delete;

  /// Runs once, when all forms are there: folders, first menu states, the main window by `showMainWindow`,
  /// the welcome, the catalogue, the sound of the start. A step that fails is told, and the next one follows.
  void StartUp(const std::function<void()>& showMainWindow);

  /// A menu entry was chosen: runs its command to the end, then renews menus and status bar, except where a
  /// panel has been opened. Entries without a command do nothing, and so does any entry while a command runs.
  /// After a reading command that broke off, the next one of its kind asks for the file.
  void run(Control control);

  /// A file was dropped on the window or named on the command line: reads it (`openFile`) as a menu entry would. True
  /// when it was read.
  bool open(const std::string& path);

  /// The key F2 was pressed: opens the diagnosis of the last fit, except where a command runs or a panel is open.
  void diagnose();

  /// The key F1 was pressed: opens the manual, whatever runs.
  void help(ManualTopic topic);

  bool isRunning() const { return running_; }

  /// Runs any handler of an event. A run-time error that nobody guarded is told and ends the handler, with
  /// everything as it was before (`Checkpoint`), and gives false; nothing is thrown.
  bool guarded(const std::function<void()>& handler);

 private:
  /// Runs a command where none runs and no panel is open, and renews menus and status bar. False when it broke off.
  bool runCommand(const std::function<void()>& command);

  Session& session_;
  Ports ports_;
  bool running_ = false;  ///< a command runs
};

}  // namespace vk
