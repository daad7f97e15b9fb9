#include "commands/StartUp.h"

#include "commands/CommandTable.h"

namespace vk {

std::string workingFolder(Files& files) {
  for (const std::string& folder : {files.programFolder(), files.documentsFolder()}) {
    if (files.isWritableFolder(folder)) return folder;
  }
  return files.currentFolder();
}

void setFirstFolders(Session& session, Files& files) {
  const std::string folder = workingFolder(files);
  session.files.DataDir = session.files.FunDir = session.files.GraDir = folder;
  session.files.WorkDir.fill(folder);
}

void setFirstMenus(MainWindow& window) {
  for (const Command& command : commandTable()) {
    window.setMenuEnabled(command.control, command.enabled);
    window.setMenuVisible(command.control, command.visible);
    if (command.kind == CommandKind::kCheck) window.setMenuChecked(command.control, false);
  }
}

}  // namespace vk
