#include "examples/ExampleFits.h"

#include "commands/FunctionChoice.h"
#include "commands/FunctionFiles.h"
#include "commands/ParameterCommands.h"
#include "data/DataFiles.h"
#include "expr/Catalogue.h"
#include "platform/GridOutput.h"

namespace vk {
namespace {

/// The first function of a file, as the last inner function of the catalogue; gives its index.
int loadFirstFunction(Session& session, Files& files, std::string fileName) {
  GridOutput report;
  ReadFunctionFile(session, files, report, fileName, {});
  loadFunction(session, 1);
  return static_cast<int>(session.loaded.catalogue.inner.size());
}

}  // namespace

const std::vector<ExampleFit>& exampleFits() {
  static const std::vector<ExampleFit> fits{
      {"ohm", 1, 2, "", {40, 0}},
      {"decay", 1, 0, "lab.fcn", {400, .2, 5}},
      {"resonance", 4, 5, "", {8, 5, .4}},
      {"pendulum", 9, 2, "", {2.5, .4, 30, .1}},
      {"thermocouple", 1, 3, "", {.00001, .04, 0}},
  };
  return fits;
}

void prepareExample(Session& session, Files& files, const ExampleFit& example) {
  const std::string dataFile = example.name + ".dat";
  LoadDataFile(session.loaded, dataFile, readData(files, dataFile).data);
  BuildCatalogue(session.loaded.catalogue);
  session.analysis.fun.InnerIndex =
      example.inner == 0 ? loadFirstFunction(session, files, example.library) : example.inner;
  session.analysis.fun.OuterIndex = example.outer;
  TakeFunction(session, 0, 0);
  for (int i = 1; i <= session.analysis.par.ParCount; ++i) {
    session.analysis.par.ParValues[i] = example.start.at(static_cast<std::size_t>(i - 1));
    session.analysis.par.ParDeltas[i] = 1;
  }
  classifyParameters(session.analysis.par);
  markParametersSet(session);
}

}  // namespace vk
