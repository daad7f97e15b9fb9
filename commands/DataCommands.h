#pragma once

#include <string>

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "session/Session.h"

/// The commands that read and save data files and choose graphic files, as straight-line code.
namespace vk {

/// Reads a data file into the session. A file with errors is told and not taken; a file that cannot be opened is
/// a run-time error. `ErrFlag` is 32755 after a cancel, -1 when no file was taken.
void MenDatLet(Session& session, Files& files, Dialogs& dialogs, OutputWindow& output, MainWindow& window);

/// Warns when the declared number of points is not the number found. False when there are fewer than two, which
/// is told too.
bool acceptCounts(Dialogs& dialogs, Int16 declaredCount, Int16 validCount);

/// Saves the data set under a name that the user gives; the session goes on with the file that it read. A disk
/// that fails while writing is a run-time error.
void MenDatSav(Session& session, Files& files, Dialogs& dialogs);

/// Chooses the graphic file that the figure commands run; it is read when it is shown.
void MenGraLetFil(Session& session, Files& files, Dialogs& dialogs, MainWindow& window);

}  // namespace vk
