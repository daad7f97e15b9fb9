#pragma once

#include "commands/Ports.h"

/// The commands that open a file in the text editor.
namespace vk {

struct Session;

/// Ask for a file of their kind and open it. `ErrFlag` is 32755 after a cancel.
void MenDatMod(Session& session, Ports& ports);
void MenFunMod(Session& session, Ports& ports);
void MenGraModFil(Session& session, Ports& ports);

}  // namespace vk
