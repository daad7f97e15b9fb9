#pragma once

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MainWindow.h"
#include "platform/Process.h"
#include "session/Session.h"

/// The commands of the menu "Servizi" that need nothing but the session and its ports.
namespace vk {

/// Switches between full error lists and short messages, and the check mark with it.
void MenSerErr(Session& session, MainWindow& window);

/// Starts the calculator, which stands in the folder of the program, and goes on. A missing one is told.
void MenSerCal(Files& files, Process& process, Dialogs& dialogs);

}  // namespace vk
