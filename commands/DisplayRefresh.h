/// Unit Msg: the refresh of menus and status bar.
#pragma once

#include <array>
#include <map>
#include <string>

#include "platform/MainWindow.h"

namespace vk {

struct Session;

/// What menus and status bar show of the session.
struct SessionDisplay {
  /// Enable state by control. An entry that is only ever turned on stands here only when it is on; every other
  /// entry of the menus keeps the state it has.
  std::map<Control, bool> enabled;
  std::array<WindowText, 5> panels;  ///< texts of panels 1..5
};

/// The display that follows from the session's flags, file names and stored figures.
SessionDisplay sessionDisplay(const Session& session);

/// The refresh of menus and status bar; every command that changes a flag ends with it.
void Msg(const Session& session, MainWindow& window);

/// Shows the session anew from the ground up, with the entries that commands turn on and off beside `Msg` and
/// the recent files: after a command that broke off, nobody knows what it has shown.
void showSession(const Session& session, MainWindow& window);

/// What stands behind the last "\" or "/" of a path.
std::string FileBaseName(const std::string& path);

}  // namespace vk
