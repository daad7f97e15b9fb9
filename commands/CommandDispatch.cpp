#include "commands/CommandDispatch.h"

#include <optional>

#include "base/Guard.h"
#include "commands/Checkpoint.h"
#include "commands/DisplayRefresh.h"
#include "commands/FileOpening.h"
#include "commands/FilePicking.h"
#include "commands/FitCommand.h"
#include "commands/ServiceCommands.h"
#include "commands/StartUp.h"
#include "session/Session.h"
#include "session/SoundSignal.h"

namespace vk {

void MainMod::StartUp(const std::function<void()>& showMainWindow) {
  guarded([this] { setFirstFolders(session_, ports_.files); });
  guarded([this] { prepareWindow(session_, ports_.window); });
  guarded(showMainWindow);
  guarded([this] { welcome(ports_); });
  guarded([this] { fillCatalogue(session_, ports_.functions); });
  guarded([this] { SoundSignal(session_.settings, ports_.sound, 0); });
  guarded([this] { Msg(session_, ports_.window); });
}

bool MainMod::runCommand(const std::function<void()>& command) {
  if (running_) return true;
  return guarded([&] {
    running_ = true;
    const AtEnd idle([this] { running_ = false; });
    if (ports_.panels.isOpen()) return;
    command();
    if (!ports_.panels.isOpen()) Msg(session_, ports_.window);
  });
}

void MainMod::run(Control control) {
  const Command& command = commandOf(control);
  if (command.run == nullptr) return;
  const bool ended = runCommand([&] { command.run(session_, ports_); });
  // The entry that is picked may be what failed; it would fail at every reading, and nobody would be asked.
  if (!ended && command.reads != 0) recentList(session_, command.reads).pick = 0;
}

bool MainMod::open(const std::string& path) {
  bool read = false;
  runCommand([&] { read = openFile(session_, ports_, path); });
  return read;
}

void MainMod::diagnose() {
  if (running_ || ports_.panels.isOpen()) return;
  guarded([this] { showDiagnosis(session_, ports_); });
}

void MainMod::help(ManualTopic topic) {
  guarded([&] { showManual(ports_, topic); });
}

bool MainMod::guarded(const std::function<void()>& handler) {
  std::optional<Checkpoint> before;
  try {
    before.emplace(session_, ports_);
    handler();
    return true;
  } catch (...) {
    const RuntimeError error = presentRuntimeError();
    guard([&] { ports_.dialogs.plainBox(kProgramTitle, WindowText(error.message())); });
    if (before) before->goBack();
    return false;
  }
}

}  // namespace vk
