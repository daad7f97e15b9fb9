#pragma once

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/FunctionForms.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "session/Session.h"

/// The commands of the menu of functions, as straight-line code.
namespace vk {

/// Reads a function file, which takes the place of the one before; functions loaded from that one leave the
/// catalogue. A file with errors is told and not taken. A file that cannot be opened is a run-time error.
/// `ErrFlag` is 0 afterwards, or as `PickFile` left it when the user chose no file.
void MenFunLet(Session& session, Files& files, Dialogs& dialogs, OutputWindow& output, MainWindow& window,
               FunctionForms& forms);

/// Lets the user compose the current function from the catalogue.
void MenFunSel(Session& session, MainWindow& window, FunctionForms& forms);

/// Lets the user take a function of the file read into the catalogue.
void MenFunCar(Session& session, MainWindow& window, FunctionForms& forms);

}  // namespace vk
