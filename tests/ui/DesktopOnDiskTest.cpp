#include <array>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "faults/SystemCalls.h"
#include "ui/DesktopOnDisk.h"

/// The commands of the windows that write files, on real files, while calls of the system fail.
namespace vk {
namespace {

using Step = std::function<void(DesktopOnDisk&)>;

/// A command, what comes before it, and the file that it writes.
struct DesktopCommand {
  std::string file;
  Step run;
  Step prepare = [](DesktopOnDisk&) {};
};

DesktopCommand menuCommandTo(const std::string& file, Control control) {
  return {file, [control](DesktopOnDisk& desktop) { desktop.run(control); }};
}

/// The editor with another text in it.
void edit(DesktopOnDisk& desktop) {
  if (desktop.editorForm.visible) desktop.editor.MnuFilRin();
  desktop.run(Control::MenDatMod);
  desktop.editorForm.text = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 6 .1\r\n";
}

std::vector<DesktopCommand> desktopCommands() {
  return {
      menuCommandTo("DATA.DAT", Control::MenDatSav),
      menuCommandTo("DIF.DAT", Control::MenGraDifSav),
      menuCommandTo("DAT.GRA", Control::MenGraDatGra),
      menuCommandTo("FUN.GRA", Control::MenGraFunGra),
      menuCommandTo("DIF.GRA", Control::MenGraDifGra),
      {"Mon_Sim.DAT",
       [](DesktopOnDisk& desktop) { desktop.mainMod.guarded([&] { desktop.output.saveRoutine()(); }); },
       [](DesktopOnDisk& desktop) {
         desktop.input.fields = {"1", "1", "1", "0", "-.5", "0"};
         desktop.run(Control::MenSerPro);
       }},
      {"EDIT.DAT",
       [](DesktopOnDisk& desktop) { desktop.mainMod.guarded([&] { desktop.editor.MnuFilSav(); }); }, edit},
  };
}

class DesktopOnFaultyDisk : public testing::Test {
 protected:
  /// The files of the folder and what was told, after a run of the command while these calls fail.
  struct Left {
    std::map<std::string, std::string> files;
    std::vector<std::string> boxes;
    std::vector<SystemCall> failed;
  };
  Left run(const DesktopCommand& command, bool replaces, const std::vector<CallFault>& faults = {}) {
    desktop.dialogs.file = desktop.folder.make(command.file, old);
    command.prepare(desktop);
    if (!replaces) std::filesystem::remove(desktop.dialogs.file);
    desktop.dialogs.boxes.clear();
    const SystemCalls calls(desktop.folder.path(), faults);
    command.run(desktop);
    return {desktop.folder.files(), desktop.dialogs.boxes, calls.failed()};
  }
  void failOneByOne(const DesktopCommand& command, bool replaces);

  const std::string old = "x\r\ny\r\n2\r\n0 1 .1\r\n1 3 .1\r\n";
  DesktopOnDisk desktop;
  int runs = 0;
};

void DesktopOnFaultyDisk::failOneByOne(const DesktopCommand& command, bool replaces) {
  constexpr std::array kErrors{EIO, ENOSPC, EACCES, EINTR};
  const Left good = run(command, replaces);
  EXPECT_NE(good.files.at(command.file), old) << command.file;
  for (int call = 1;; ++call) {
    for (const int error : kErrors) {
      const Left left = run(command, replaces, {{call, error}});
      if (left.failed.empty()) {
        EXPECT_GT(call, kCallsOfASave) << command.file;
        return;
      }
      ++runs;
      SCOPED_TRACE(command.file + ", " + left.failed[0].name + ", error " + std::to_string(error));
      if (!stopsASave(left.failed[0], error, replaces)) {
        EXPECT_EQ(left.files, good.files);
        EXPECT_EQ(left.boxes, good.boxes);
        continue;
      }
      auto before = good.files;
      before[command.file] = old;
      if (!replaces) before.erase(command.file);
      EXPECT_TRUE(left.files == before || left.files == good.files);
      const std::string reason = runtimeErrorText(error == EACCES ? kPathAccessError : kDeviceIoError);
      EXPECT_EQ(left.boxes.size(), good.boxes.size() + 1);
      EXPECT_NE(left.boxes.back().find(reason), std::string::npos) << left.boxes.back();
    }
  }
}

TEST_F(DesktopOnFaultyDisk, AFailedCallIsToldAndLeavesTheOldFileOrTheNewOne) {
  for (const DesktopCommand& command : desktopCommands()) {
    for (const bool replaces : {true, false}) failOneByOne(command, replaces);
  }
  RecordProperty("runs", runs);
}

TEST_F(DesktopOnFaultyDisk, WhatIsReadWhileACallFailsIsToldAndTheOldDataStay) {
  desktop.dialogs.file = desktop.folder.make("B.DAT", old);
  const auto points = desktop.session.loaded.data.NumPnt;
  for (const CallFault& fault : {CallFault{1, EIO, "open"}, {1, EIO, "read"}, {2, ENOSPC, "read"}}) {
    desktop.dialogs.boxes.clear();
    const SystemCalls calls(desktop.folder.path(), {fault});
    desktop.run(Control::MenDatLet);
    EXPECT_EQ(calls.failed().size(), 1U);
    EXPECT_EQ(desktop.dialogs.boxes,
              std::vector<std::string>{"Errore di run-time '57':\n\nErrore di I/O della periferica"});
    EXPECT_EQ(desktop.session.loaded.data.NumPnt, points);
  }
  const SystemCalls calls(desktop.folder.path(), {{1, EINTR}, {3, EINTR}});
  desktop.run(Control::MenDatLet);
  EXPECT_EQ(desktop.session.loaded.data.NumPnt, 2);
}

}  // namespace
}  // namespace vk
