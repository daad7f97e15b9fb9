/// Unit FunMod: function files as the commands read them.
#pragma once

#include <string>

#include "expr/FunctionFile.h"
#include "platform/Files.h"
#include "platform/OutputWindow.h"

namespace vk {

struct Session;

/// Reads and checks a function file. `name` is folded to capitals in the caller's variable.
///
/// The functions replace those of the file before if no error was found; a report with errors is shown where
/// functions are compiled and traced. `ErrFlag` is -1 after errors, else 0. A file that cannot be read is a
/// run-time error (`Files::readAll`).
void ReadFunctionFile(Session& session, Files& files, OutputWindow& output, std::string& name,
                      FunctionFileChecks checks);

}  // namespace vk
