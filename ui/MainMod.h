#pragma once

#include <functional>
#include <string>

#include "base/Int16.h"
#include "ui/Editor.h"
#include "ui/MainPanels.h"
#include "ui/Ports.h"

/// Start-up and main dispatch: which command each menu entry runs.
namespace vk {

struct Session;

class MainMod {
 public:
  MainMod(Session& session, const Ports& ports, MainPanels& panels, Editor& editor)
      : session_(session), ports_(ports), panels_(panels), editor_(editor) {}

  /// Runs once, when all forms are there: folders, first menu states, the main window by `showMainWindow`,
  /// the welcome, the catalogue, the sound of the start. A step that fails is told, and the next one follows.
  void StartUp(const std::function<void()>& showMainWindow);

  /// A menu entry was chosen: runs its command to the end, then renews menus and status bar, except where a
  /// panel has been opened. Entries without a command do nothing, and so does any entry while a command runs.
  /// After a reading command that broke off, the next one of its kind asks for the file.
  void run(Control control);

  bool isRunning() const { return running_ != kFalse; }

  /// True for the entries that run something.
  static bool hasCommand(Control control) { return findHandler(control) != nullptr; }

  /// Runs any handler of an event. A run-time error that nobody guarded is told and ends the handler, with
  /// everything as it was before (`Checkpoint`), and gives false; nothing is thrown.
  bool guarded(const std::function<void()>& handler);

  /// What "&Esegui" of the input form runs, by the number in its tables.
  void runInputAction(int action);

 private:
  struct Handler;
  static const Handler* findHandler(Control control);

  void tell(const RuntimeError& error);
  FigurePorts& figures();
  PlotWindows* plots() { return figures_ == nullptr ? nullptr : &figures_->plots; }
  void prepareWindow();
  void welcome();
  void fillCatalogue();

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
  FigurePorts* figures_ = nullptr;  ///< none before the first figure
  Flag running_;                    ///< a command runs
};

}  // namespace vk
