/// Unit MainMod: the steps of the start-up.
#pragma once

#include <array>
#include <string>

#include "commands/Ports.h"

/// The steps of the start-up.
namespace vk {

struct Session;

/// The texts of the five status panels before the first `Msg`.
inline const std::array<WindowText, 5> kStartPanels{"Dati: Nessuno ", "Fun.: Nessuno ", "Grafici: Nessuno ",
                                                    "Fun.Att.: NO ", "Par.Var.: NO "};

/// The folder in which work begins: the program's where files can be made in it; else the current one where the user
/// has started the program at a terminal; else his documents, or again the current one where those cannot be written.
std::string workingFolder(Files& files);

/// Sets the folders of a new session. All other fields have their first values from the start.
void setFirstFolders(Session& session, Files& files);

/// Sets the first state of all menu entries.
void setFirstMenus(MainWindow& window);

/// What the main window first shows: status panels, menus, background and caption.
void prepareWindow(const Session& session, MainWindow& window);

/// Greets the user.
void welcome(Ports& ports);

/// Makes the catalogue of functions and shows it in the form that selects from it.
void fillCatalogue(Session& session, FunctionForms& forms);

}  // namespace vk
