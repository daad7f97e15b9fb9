/// Unit FunMod: function files as the commands read them.
#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/OutputWindow.h"
#include "session/Session.h"

/// Function files as the commands read them, steered by the session's `TraceEnabled` (write the report) and
/// `CheckFunctions` (compile each function). The outcome is in `ErrFlag`.
namespace vk {

/// Reads and checks a function file. `name` is folded to capitals in the caller's variable.
///
/// With `checkOnly` nothing is stored and the report stays in `TraceText`; else the functions replace those of the
/// file before if no error was found, a report with errors is shown, and `TraceText` is cleared. A file that cannot
/// be read is a run-time error (`Files::readAll`).
void ReadFunctionFile(Session& session, Files& files, OutputWindow& output, std::string& name,
                      Flag checkOnly);

/// Checks the text of a function file as `ReadFunctionFile` does with `checkOnly`.
void CheckFunctionText(Session& session, std::string_view text);

}  // namespace vk
