#pragma once

#include "doubles/TemporaryFolder.h"
#include "platform/system/SystemFiles.h"
#include "ui/FaultyDesktop.h"

namespace vk {

/// A user who answers every question in the same way, and keeps what he was told.
class ToldDialogs : public FaultyDialogs {
 public:
  using FaultyDialogs::FaultyDialogs;
  int Get_Msg(const MessageRequest& request) override {
    boxes.emplace_back(request.text.bytes());
    return button;
  }
};

/// The program below the toolkit, with data, a function and its figures, on a folder in memory. Nothing but the disk
/// fails.
class DesktopOnDisk : public FaultyDesktop<SystemFiles, ToldDialogs> {
 public:
  DesktopOnDisk();

  TemporaryFolder folder{folderInMemory()};
};

inline DesktopOnDisk::DesktopOnDisk() {
  mainMod.StartUp([] {});
  session.files.DataDir = session.files.FunDir = session.files.GraDir = folder.path();
  dialogs.file = folder.make("A.DAT", "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n");
  run(Control::MenDatLet);
  fitAndDraw();
}

}  // namespace vk
