#pragma once

#include <string>
#include <vector>

#include "commands/EditCommands.h"
#include "commands/FunctionFiles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/ScriptedForms.h"
#include "expr/Catalogue.h"
#include "session/Session.h"

namespace vk {

inline const std::string kNoFunctionReport = "*** ERR. Il File NON Contiene Funzioni!\r\n";

/// The lines with the line end of the program's files.
inline std::string lines(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += text + "\r\n";
  return result;
}

/// Function files in memory, read into a session.
class FunctionFileTest : public testing::Test {
 protected:
  FunctionFileTest() { BuildCatalogue(session.loaded.catalogue); }

  /// Reads a file with these bytes; the result is the session's.
  void read(const std::string& bytes) {
    files.content["f.fcn"] = bytes;
    std::string name = "f.fcn";
    ReadFunctionFile(session, files, output, name, checks);
  }
  /// The report that a check with the report on gives.
  std::string report(const std::string& bytes) { return checkText(session, kFunctionKind, bytes).report; }
  const std::vector<FunctionFile::Entry>& entries() const { return session.loaded.catalogue.file.entries; }

  Session session;
  FunctionFileChecks checks{.compile = true, .trace = false};
  MemoryFiles files;
  RecordingOutput output;
};

}  // namespace vk
