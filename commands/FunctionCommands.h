/// Unit FunMod: the commands of the menu of functions.
#pragma once

#include "commands/Ports.h"

/// The commands of the menu of functions, as straight-line code.
namespace vk {

struct Session;

/// Reads a function file, which takes the place of the one before; functions loaded from that one leave the
/// catalogue. A file with errors is told and not taken. A file that cannot be opened is a run-time error.
/// `ErrFlag` is 0 afterwards, or as `PickFile` left it when the user chose no file.
void MenFunLet(Session& session, Ports& ports);

/// Lets the user compose the current function from the catalogue.
void MenFunSel(Session& session, Ports& ports);

/// Lets the user take a function of the file read into the catalogue.
void MenFunCar(Session& session, Ports& ports);

}  // namespace vk
