#pragma once

#include "commands/Ports.h"

/// The commands of the menu "Servizi" beside the propagation of errors.
namespace vk {

struct Session;

/// Switches between full error lists and short messages, and the check mark with it.
void MenSerErr(Session& session, Ports& ports);

/// Starts the calculator, which stands in the folder of the program, and goes on. A missing one is told.
void MenSerCal(Session& session, Ports& ports);

/// Opens the manual at a topic. What stands in the way is told.
void showManual(Ports& ports, ManualTopic topic);

/// Open the panels of the working folders and of the figures.
void MenSerImpDir(Session& session, Ports& ports);
void MenSerImpGra(Session& session, Ports& ports);

}  // namespace vk
