#pragma once

#include <string>

#include "commands/Ports.h"

/// The commands that open a file in the text editor, and the check of what is saved there.
namespace vk {

struct Session;

/// Ask for a file of their kind and open it. `ErrFlag` is 32755 after a cancel.
void MenDatMod(Session& session, Ports& ports);
void MenFunMod(Session& session, Ports& ports);
void MenGraModFil(Session& session, Ports& ports);

/// What the reader of its kind finds in the text of a file.
struct TextCheck {
  bool good = true;
  std::string report;
};

/// Runs the reader of the kind over a text, with every check and its report on; graphic files have none.
TextCheck checkText(Int16 kind, const std::string& text);
/// The same as a command: `ErrFlag` is -1 afterwards where the text has errors, else 0. The session takes over nothing
/// of the text.
TextCheck checkText(Session& session, Int16 kind, const std::string& text);

}  // namespace vk
