#pragma once

#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "batch/TerminalPorts.h"
#include "platform/Files.h"

namespace vk {

struct DataSet;
struct Session;

/// Why the bytes of a file are no data, and the command that cures it; empty if unknown.
std::string causeOf(const std::string& fileName, const std::string& bytes);

/// Checks and loads a data file. Its errors raise `UsageError` with the program's own list and the cause; a declared
/// count that differs from the points found is a note, as in the program.
void loadData(Session& session, Files& files, const std::string& fileName);

/// Writes a file that the command line names; one that cannot be written raises `UsageError`.
void writeFile(Files& files, const std::string& fileName, const std::string& bytes);

/// How many digits written data are to have; another number than 1 to 17 raises `UsageError`. Nothing is the number
/// that data files have as a rule.
int dataDigits(const std::optional<int>& wanted);

/// Where nobody chose the digits of written data and some are lost, that is told.
void tellLostDigits(const std::string& fileName, const DataSet& data, const std::optional<int>& digits);

/// Writes data as `writeFile` does, and tells lost digits.
void writeData(Files& files, const std::string& fileName, const DataSet& data,
               const std::optional<int>& digits);

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
