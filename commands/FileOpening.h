#pragma once

#include <string>

#include "commands/Ports.h"

namespace vk {

struct Session;

/// Reads a file that was dropped on the main window or named on the command line. One whose extension is DAT, FCN or
/// GRA, in any case, is read by the command of its kind as if it had been chosen in the file dialog, also where an
/// entry of a recent list is picked; that one is no longer picked then. Any other file, and a data file that looks like
/// a table of another program, opens the window that makes a data file of it, which is read then; one that is no text
/// is told. True when a file was read.
bool openFile(Session& session, Ports& ports, const std::string& path);

}  // namespace vk
