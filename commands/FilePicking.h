#pragma once

#include <string>

#include "commands/Ports.h"
#include "session/FileSettings.h"

/// The one way to a file name, and the lists of the files read last.
namespace vk {

struct Session;

/// What a file is picked for.
enum PickMode : int {
  kPickExisting = 0,  ///< a file to be read, which must exist
  kPickForEditor = 1,
  kPickToSave = 2,
};

/// Asks for a file name; `name` is proposed and takes the answer.
///
/// `ErrFlag` is 0 for a name, 32755 after a cancel, -1 when the user gave up at the message on a missing file;
/// in both latter cases `name` is as it was. `kPickExisting` remembers folder and extension of data files and
/// of graphic files.
void PickFile(Session& session, const FilePorts& ports, const WindowText& caption, std::string& name,
              Int16 kind, Int16 mode);

/// The file of a reading command: the recent entry that was picked, else the user is asked. False when the
/// command is to stop; `ErrFlag` then tells why. A picked entry stays picked.
bool pickFileToRead(Session& session, Ports& ports, const WindowText& caption, Int16 kind, std::string& name);

/// The file of a saving command: asks for a name, before an existing file is replaced, and again when a name
/// cannot be written. False when the user stopped. `ErrFlag` is 0 in either case.
bool pickFileToSave(Session& session, const FilePorts& ports, const WindowText& caption, Int16 kind,
                    std::string& name);

/// The name of a file without folder and extension, from which others are proposed.
std::string nameWithoutExtension(const std::string& path);

/// The list of recent files of a kind.
RecentList& recentList(Session& session, Int16 kind);
const RecentList& recentList(const Session& session, Int16 kind);

/// Control of an entry of a recent list, index 0..3.
Control recentControl(Int16 kind, int index);

/// Puts a file in front of its recent list and shows the list in its menu, where the file bears the name `shown`.
void addRecentFile(Session& session, MainWindow& window, Int16 kind, const std::string& shown,
                   const std::string& path);

/// Shows the files of a recent list in its menu.
void showRecentFiles(const Session& session, MainWindow& window, Int16 kind);

/// Makes the next reading command of this kind take entry `index` (from 0) of its list.
void pickRecentFile(Session& session, Int16 kind, int index);

/// Makes the next reading command of this kind take a file as if it were chosen in the dialog, also where an entry of
/// its list is picked; that one is no longer picked then.
void handFile(Session& session, Int16 kind, const std::string& path);

}  // namespace vk
