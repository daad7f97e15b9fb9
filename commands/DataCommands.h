#pragma once

#include <string>

#include "commands/Ports.h"

/// The commands that read and save data files and choose graphic files, as straight-line code.
namespace vk {

struct Session;

/// Reads a data file into the session. A file with errors is told and not taken; a file that cannot be opened is
/// a run-time error. `ErrFlag` is 32755 after a cancel, -1 when no file was taken.
void MenDatLet(Session& session, Ports& ports);

/// Warns when the declared number of points is not the number found.
void compareCounts(Dialogs& dialogs, Int16 declaredCount, Int16 validCount);
/// The same; false when there are fewer than two points, which is told too.
bool acceptCounts(Dialogs& dialogs, Int16 declaredCount, Int16 validCount);

/// Saves the data set under a name that the user gives; the session goes on with the file that it read. A disk
/// that fails while writing is a run-time error.
void MenDatSav(Session& session, Ports& ports);

/// Asks for the name of a data file, where `name` is proposed and takes the answer, and writes the text. False when the
/// user stopped. A disk that fails while writing is a run-time error.
bool saveDataText(Session& session, const FilePorts& ports, const std::string& text, std::string& name);

/// Chooses the graphic file that the figure commands run; it is read when it is shown.
void MenGraLetFil(Session& session, Ports& ports);

}  // namespace vk
