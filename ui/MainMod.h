#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "grafile/FigurePorts.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/FunctionForms.h"
#include "platform/InputForm.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "platform/Process.h"
#include "platform/Random.h"
#include "platform/Sound.h"
#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/MainPanels.h"

/// Start-up and main dispatch: which command each menu entry runs.
namespace vk {

/// Everything outside the program that commands work with.
struct Ports {
  Files& files;
  Dialogs& dialogs;
  MainWindow& window;
  InputForm& input;
  OutputWindow& output;
  FunctionForms& functions;
  Clock& clock;
  Sound& sound;
  Process& process;
  Random& random;
  std::function<FigurePorts&()> figures;  ///< what figures need; asked for when one is drawn
};

class MainMod {
 public:
  /// `quit` ends the program with an exit code.
  MainMod(Session& session, const Ports& ports, MainPanels& panels, Editor& editor,
          std::function<void(int)> quit)
      : session_(session), ports_(ports), panels_(panels), editor_(editor), quit_(std::move(quit)) {}

  /// Runs once, when all forms are there: folders, first menu states, the main window by `showMainWindow`,
  /// the welcome, the catalogue, the sound of the start.
  void StartUp(const std::function<void()>& showMainWindow);

  /// A menu entry was chosen: runs its command to the end, then renews menus and status bar, except where a
  /// panel has been opened. Entries without a command do nothing, and so does any entry while a command runs.
  void run(std::string_view control);

  bool isRunning() const { return running_ != kFalse; }

  /// True for the entries that run something.
  static bool hasCommand(std::string_view control) { return findHandler(control) != nullptr; }

  /// Runs any handler of an event. A run-time error that nobody guarded is told, and the program ends; nothing
  /// is thrown.
  void guarded(const std::function<void()>& handler);

  /// What "&Esegui" of the input form runs, by the number in its tables.
  void runInputAction(int action);

 private:
  struct Handler;
  /// Entries of recent lists share one handler, whatever stands in their brackets.
  static const Handler* findHandler(std::string_view control);

  void end(const RuntimeError& error);
  void welcome();

  void menDatLet();
  void menDatMod();
  void menDatSav();
  void menDatTra();
  void menDatSim();
  void menFunSel();
  void menFunLet();
  void menFunMod();
  void menFunCar();
  void menGraLetFil();
  void menGraModFil();
  void menAdaPar();
  void menAdaAda();
  void menSerCal();
  void menSerPro();
  void menSerImpDir() { panels_.MenSerImpDir(); }
  void menSerImpGra() { panels_.MenSerImpGra(); }
  void menSerErr();
  template <FileKindCode kind>
  void recent(int index);
  void edit(const std::string& caption, Int16 kind);

  Session& session_;
  Ports ports_;
  MainPanels& panels_;
  Editor& editor_;
  std::function<void(int)> quit_;
  Flag running_;  ///< a command runs
  bool ended_ = false;
};

}  // namespace vk
