#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "platform/Control.h"

/// The table of commands: every entry of the menus, from which the window builds its menus and the dispatcher
/// finds its handlers.
namespace vk {

/// What an entry does when it is chosen.
enum class CommandKind {
  kMenu,     ///< opens its sub-entries
  kCommand,  ///< runs a handler
  kCheck,    ///< runs a handler and bears a check mark, off at start
  kRecent,   ///< an entry of a recent list; its caption is set when a file is put there
  kNothing,  ///< has no command
};

/// One entry.
struct Command {
  Control control;
  std::string_view name;          ///< of the control
  std::optional<Control> parent;  ///< menu that holds it; none for the five top menus
  std::string_view caption;       ///< Windows-1252, "&" before the access key
  CommandKind kind;
  bool enabled;  ///< at start; the entries that follow the session's flags start off
  bool visible;
};

/// All entries in the order of the menus, each behind its parent.
std::span<const Command> commandTable();

std::string_view controlName(Control control);

}  // namespace vk
