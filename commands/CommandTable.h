/// Unit MainMod: the table of commands.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "commands/Ports.h"
#include "platform/Control.h"

/// The table of commands: every entry of the menus. The window builds its menus from it, the refresh takes the states
/// of the entries from it, the dispatch what they run.
namespace vk {

struct Session;

/// What an entry does when it is chosen.
enum class CommandKind {
  kMenu,     ///< opens its sub-entries
  kCommand,  ///< runs a command
  kCheck,    ///< runs a command and bears a check mark, off at start
  kRecent,   ///< an entry of a recent list; shown with its caption when a file is put there
  kNothing,  ///< has no command and is never shown
};

/// How the refresh of the display follows a rule.
enum class Refreshed {
  kNever,   ///< commands turn the entry on and off
  kOnlyOn,  ///< turned on, never off
  kBoth,
};

/// When an entry is on. An entry without a rule keeps the state it has at start.
struct EnableRule {
  bool (*holds)(const Session& session) = nullptr;
  Refreshed refreshed = Refreshed::kNever;
  bool anew = false;  ///< followed both ways where all is shown from the ground up
};

/// One entry.
struct Command {
  Control control;
  std::string_view name;          ///< of the control
  std::optional<Control> parent;  ///< menu that holds it; none for the five top menus
  WindowText caption;             ///< "&" before the access key
  CommandKind kind;
  void (*run)(Session& session, Ports& ports) = nullptr;
  EnableRule rule{};
  int reads = 0;  ///< `FileKindCode` of what a reading command reads; 0 for any other

  /// At start; what follows the session's flags starts off.
  bool enabled() const { return kind != CommandKind::kNothing && rule.holds == nullptr; }
  bool visible() const { return kind != CommandKind::kRecent && kind != CommandKind::kNothing; }
};

/// All entries in the order of the menus, each behind its parent.
std::span<const Command> commandTable();

/// The entry of a control.
const Command& commandOf(Control control);

}  // namespace vk
