#pragma once

#include "commands/FunctionChoice.h"
#include "commands/PropagationCommand.h"
#include "doubles/Choices.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"
#include "expr/Catalogue.h"

namespace vk {

/// A session with its catalogue and all ports, in which errors are propagated.
class PropagationTest : public testing::Test {
 protected:
  PropagationTest() {
    BuildCatalogue(session.loaded.catalogue);
    session.files.DataDir = "/data";
    clock.now = 4711.5F;
  }

  /// Makes a formula current as if it came from a function file.
  void load(const std::string& parameters, const std::string& formula,
            const std::string& description = "formula") {
    session.loaded.catalogue.file.entries = {compiledEntry(parameters, formula, description)};
    loadFunction(session, 1);
    choose(session, static_cast<int>(session.loaded.catalogue.inner.size()), 1);
  }
  /// Value and error of a variable; 0 is the independent one.
  void set(int i, double value, double error) {
    session.analysis.par.ParValues[i] = value;
    session.analysis.par.ParDeltas[i] = error;
  }
  PropagationResult propagate(Random& random) {
    return PropagateErrors(session, TestPorts(dialogs, window, output, files, clock, random));
  }
  std::string screen() const { return output.grid().toUtf8(); }

  Session session;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  RecordingOutput output;
  MemoryFiles files;
  StillClock clock;
};

}  // namespace vk
