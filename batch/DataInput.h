#pragma once

#include <string>

#include "base/RuntimeError.h"
#include "batch/TerminalPorts.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"

namespace vk {

struct Session;

/// Checks and loads a data file. Its errors raise `UsageError` with the program's own list; a declared count
/// that differs from the points found is a warning through `dialogs`, as in the program.
void loadData(Session& session, Files& files, Dialogs& dialogs, const std::string& fileName);

/// Writes a file that the command line names; one that cannot be written raises `UsageError`.
void writeFile(Files& files, const std::string& fileName, const std::string& bytes);

/// Runs a statement that reads or writes a file; one that cannot be read or written is bad input and raises
/// `UsageError`.
template <class Statement>
void usingFile(const std::string& fileName, Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const UsageError&) {
    throw;
  } catch (...) {
    throw UsageError(shownName(fileName) + ": " + presentRuntimeError().reason());
  }
}

}  // namespace vk
