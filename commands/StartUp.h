#pragma once

#include <array>
#include <string>

#include "platform/Files.h"
#include "platform/MainWindow.h"
#include "session/Session.h"

/// The parts of the start-up that need no form.
namespace vk {

/// The texts of the five status panels before the first `Msg`.
inline constexpr std::array<const char*, 5> kStartPanels{
    "Dati: Nessuno ", "Fun.: Nessuno ", "Grafici: Nessuno ", "Fun.Att.: NO ", "Par.Var.: NO "};

/// The folder in which work begins: the program's where files can be made in it, else the user's documents,
/// else the current one.
std::string workingFolder(Files& files);

/// Sets the folders of a new session. All other fields have their first values from the start.
void setFirstFolders(Session& session, Files& files);

/// Sets the first state of all menu entries.
void setFirstMenus(MainWindow& window);

}  // namespace vk
