#include "commands/FilePicking.h"

#include <array>
#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "session/Session.h"

namespace vk {
namespace {

// ---- Texts ------------------------------------------------------------------------------------------------

constexpr const char* kGraphicFiles = "Grafici";
constexpr const char* kFileFilter = "File ";
constexpr const char* kMissingFile[] = {" Specificato: ", " NON Esiste!"};
// QUIRK: the name is missing between the two blanks.
constexpr const char* kOverwriteQuestion = "FILE  gia` Esistente: Sovrascrivo?";
constexpr const char* kYesButton = "&Si";
constexpr const char* kNoButton = "&No";

// ---- The kinds of file ------------------------------------------------------------------------------------

/// What the kinds of file differ in.
struct KindOfFile {
  WindowText label;
  std::string FileSettings::*folder;
  std::string FileSettings::*extension;
  RecentList FileSettings::*recent;
  Control firstRecent;
  bool remembersFolder;
};

// QUIRK: function files are always offered in the folder set at start or in the directory panel, never in that
// of the last one, so that a library folder stays at hand.
constexpr std::array<KindOfFile, 3> kKinds{{
    {kDataWord, &FileSettings::DataDir, &FileSettings::DataExt, &FileSettings::RecentData,
     Control::MenDatOld0, true},
    {kFunctionsWord, &FileSettings::FunDir, &FileSettings::FunExt, &FileSettings::RecentFun,
     Control::MenFunOld0, false},
    {kGraphicFiles, &FileSettings::GraDir, &FileSettings::GraExt, &FileSettings::RecentGra,
     Control::MenGraOld0, true},
}};

const KindOfFile& kindOf(Int16 kind) {
  if (kind < kDataKind || kind > kGraphicKind) throw RuntimeError(kIndexOutOfRange);
  return kKinds[static_cast<std::size_t>(kind - kDataKind)];
}

FileRequest requestFor(const Session& session, const WindowText& caption, const std::string& name,
                       const KindOfFile& kind, Int16 mode) {
  const std::string& extension = session.files.*kind.extension;
  const std::string pattern = "*." + extension;
  return {.save = mode == kPickToSave,
          .caption = caption,
          .folder = session.files.*kind.folder,
          .filter = WindowText(kAllFilesFilter) + kFileFilter + kind.label +
                    WindowText(" (" + pattern + ")|" + pattern + "|"),
          .filterIndex = 2,
          .proposedName = name,
          .defaultExtension = extension};
}

/// The answer of the dialog, or the file that the program was handed in its stead.
std::optional<std::string> chooseFile(Session& session, Dialogs& dialogs, const FileRequest& request) {
  if (!session.files.handed.empty()) return std::exchange(session.files.handed, {});
  return dialogs.fileDialog(request);
}

/// What stands before the first occurrence of the file's own name in its path, without the final separator; a
/// file of the root has the folder "/".
std::string folderBefore(const std::string& path, const std::string& fileName) {
  // QUIRK: a folder that bears the file's name ends the path there.
  std::string folder = left(path, position(path, fileName) - 1);
  if (folder == "/") return folder;
  if (folder.ends_with('/') || folder.ends_with('\\')) folder.pop_back();
  return folder;
}

void rememberPlace(Session& session, const KindOfFile& kind, const std::string& path) {
  if (!kind.remembersFolder) return;
  session.files.*kind.folder = folderBefore(path, GetFileName(path));
  session.files.*kind.extension = GetExtensionName(path);
}

/// Tells that a file is missing; true when the user wants to choose another one.
bool wantsAnotherFile(Dialogs& dialogs, const KindOfFile& kind, const std::string& name) {
  return dialogs.Get_Msg(
             {.caption = kReadCaption + kind.label,
              .text = kTheFile + kind.label + kMissingFile[0] + WindowText(name) + kMissingFile[1],
              .icon = kExclamation,
              .captions = {kContinueButton, kGiveUpButton}}) == 1;
}

enum OverwriteAnswer : int { kReplace = 1, kOtherName = 2, kGiveUp = 3 };

int askToOverwrite(Dialogs& dialogs, const WindowText& caption) {
  return dialogs.Get_Msg({.caption = caption,
                          .text = kOverwriteQuestion,
                          .icon = kQuestion,
                          .captions = {kYesButton, kNoButton, kContinueButton}});
}

bool wantsToRetry(Dialogs& dialogs, const WindowText& caption, const std::string& name) {
  return dialogs.Get_Msg({.caption = caption,
                          .text = kWrongName[0] + WindowText(name) + kWrongName[1],
                          .icon = kExclamation,
                          .captions = {kRetryButton, kContinueButton}}) == 1;
}

/// A menu takes "&" as the mark of the access key.
std::string inMenu(const std::string& path) {
  std::string text;
  for (const char c : path) text += c == '&' ? "&&" : std::string{c};
  return text;
}

}  // namespace

void PickFile(Session& session, const FilePorts& ports, const WindowText& caption, std::string& name,
              Int16 kind, Int16 mode) {
  session.ErrFlag = 0;
  const KindOfFile& which = kindOf(kind);
  std::string proposed = name;
  for (;;) {
    const auto chosen =
        chooseFile(session, ports.dialogs, requestFor(session, caption, proposed, which, mode));
    if (!chosen) {
      session.ErrFlag = kCancelled;
      return;
    }
    if (mode != kPickExisting || ports.files.FileExists(*chosen)) {
      name = *chosen;
      break;
    }
    if (!wantsAnotherFile(ports.dialogs, which, *chosen)) {
      session.ErrFlag = kTrue;
      return;
    }
    proposed.clear();
  }
  if (mode == kPickExisting) rememberPlace(session, which, name);
}

bool pickFileToRead(Session& session, Ports& ports, const WindowText& caption, Int16 kind,
                    std::string& name) {
  session.ErrFlag = 0;
  const RecentList& list = recentList(session, kind);
  if (list.pick == 0) {
    PickFile(session, ports, caption, name, kind, kPickExisting);
  } else {
    // QUIRK: the entry stays picked, so that the next reading takes that place of the list without asking.
    name = list.paths[list.pick];
  }
  return session.ErrFlag == 0;
}

bool pickFileToSave(Session& session, const FilePorts& ports, const WindowText& caption, Int16 kind,
                    std::string& name) {
  for (;;) {
    PickFile(session, ports, caption, name, kind, kPickToSave);
    const bool cancelled = session.ErrFlag != 0;
    session.ErrFlag = 0;
    if (cancelled) return false;
    const int answer = ports.files.FileExists(name) ? askToOverwrite(ports.dialogs, caption) : kReplace;
    if (answer == kGiveUp) return false;
    if (answer == kOtherName) continue;
    if (ports.files.canWrite(name)) return true;
    if (!wantsToRetry(ports.dialogs, caption, name)) return false;
  }
}

std::string nameWithoutExtension(const std::string& path) {
  const std::string name = GetFileName(path);
  return name.substr(0, name.rfind('.'));
}

RecentList& recentList(Session& session, Int16 kind) {
  return session.files.*kindOf(kind).recent;
}

const RecentList& recentList(const Session& session, Int16 kind) {
  return session.files.*kindOf(kind).recent;
}

Control recentControl(Int16 kind, int index) {
  return static_cast<Control>(static_cast<int>(kindOf(kind).firstRecent) + index);
}

void addRecentFile(Session& session, MainWindow& window, Int16 kind, const std::string& shown,
                   const std::string& path) {
  RecentList& list = recentList(session, kind);
  if (list.RecentCount < list.RecentMax) ++list.RecentCount;
  for (int entry = list.RecentCount; entry >= 2; --entry) {
    list.files[entry] = list.files[entry - 1];
    list.paths[entry] = list.paths[entry - 1];
  }
  list.files[1] = shown;
  list.paths[1] = path;
  showRecentFiles(session, window, kind);
}

void showRecentFiles(const Session& session, MainWindow& window, Int16 kind) {
  const RecentList& list = recentList(session, kind);
  for (int entry = 1; entry <= list.RecentCount; ++entry) {
    const Control control = recentControl(kind, entry - 1);
    window.setMenuCaption(control, WindowText("&" + std::to_string(entry) + " " + inMenu(list.files[entry])));
    window.setMenuVisible(control, true);
  }
}

void pickRecentFile(Session& session, Int16 kind, int index) {
  recentList(session, kind).pick = index + 1;
}

void handFile(Session& session, Int16 kind, const std::string& path) {
  recentList(session, kind).pick = 0;
  session.files.handed = path;
}

}  // namespace vk
