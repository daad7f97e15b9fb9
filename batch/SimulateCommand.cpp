#include "batch/SimulateCommand.h"

#include <cmath>
#include <functional>
#include <optional>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "batch/DataInput.h"
#include "batch/FitCommand.h"
#include "batch/Seed.h"
#include "batch/TerminalPorts.h"
#include "commands/SimulationCommand.h"
#include "data/DataFiles.h"
#include "platform/system/SystemRandom.h"

namespace vk {
namespace {

constexpr int kMostPoints = 32767;

/// The form of the simulation, filled in from the command line.
class SimulationForm : public InputForm {
 public:
  SimulationForm(Session& session, const SimulateArguments& arguments, std::function<void()> execute)
      : session_(session), arguments_(arguments), execute_(std::move(execute)) {}

  void InpShow(InputTables& tables, Form) override {
    enter(tables, 1, "--xmin", arguments_.xmin);
    enter(tables, 2, "--xmax", arguments_.xmax);
    enter(tables, 3, "--points", arguments_.points);
    checkPoints();
    enter(tables, 4, "--dy", arguments_.dy);
    tables.InpValues[5] = arguments_.dyAbsolute ? "1" : "0";
    enter(tables, 6, "--dx", arguments_.dx);
    tables.InpValues[7] = arguments_.dxAbsolute ? "1" : "0";
    session_.ErrFlag = 0;
    execute_();
  }

 private:
  static void enter(InputTables& tables, int field, const char* option, const std::string& text) {
    if (text.empty()) return;
    if (!isNumeric(text)) throw UsageError(std::string(option) + " \"" + text + "\": si attende un numero");
    tables.InpValues[field] = text;
  }

  /// The form would only speak of an overflow.
  void checkPoints() const {
    if (std::abs(scanNumber(arguments_.points)) < kMostPoints + 0.5) return;
    throw UsageError("simulate: --points \"" + arguments_.points + "\": si attende un numero fino a " +
                     std::to_string(kMostPoints));
  }

  Session& session_;
  const SimulateArguments& arguments_;
  std::function<void()> execute_;
};

Json settings(const SimulationSettings& sim, float seed) {
  return Json::Object{
      {"x_min", sim.SimXMin},
      {"x_max", sim.SimXMax},
      {"points", int{sim.SimPoints}},
      {"error_y", sim.SimErrY},
      {"error_y_absolute", sim.SimErrYAbs != 0},
      {"error_x", sim.SimErrX},
      {"error_x_absolute", sim.SimErrXAbs != 0},
      {"seed", double{seed}},
  };
}

/// The parameters that the data were made with.
Json truth(const ParameterSet& par) {
  Json::List list;
  for (int i = 1; i <= par.ParCount; ++i) {
    list.push_back(
        Json::Object{{"name", toUtf8(par.name(i), CodePage::kCp437)}, {"value", par.ParValues[i]}});
  }
  return list;
}

}  // namespace

int runSimulate(const SimulateArguments& arguments) {
  Session session;
  TerminalFiles files;
  SystemRandom random;
  TerminalDialogs dialogs;
  NoMainWindow window;
  chooseModel(session, files, arguments.model, parameterNames(arguments.parameters));
  enterStart(session, arguments.parameters);
  const float seed = Seed(arguments.seed).timer();
  random.seed(seed);

  std::optional<FitOutcome> outcome;
  SimulationForm form(session, arguments, [&] {
    SimulateData(session, dialogs, window, random,
                 [&] { outcome = fitAtTerminal(session, dialogs, arguments.json); });
  });
  MenDatSim(session, form);
  if (!outcome) return kExitBadInput;
  if (arguments.json) {
    outcome->report = Json::Object{{"settings", settings(session.analysis.sim, seed)},
                                   {"truth", truth(session.analysis.par)},
                                   {"fit", outcome->report}};
  }
  printOutcome(*outcome, arguments.json);
  if (!arguments.outputFile.empty())
    writeFile(files, arguments.outputFile, dataFileText(session.loaded.data));
  return outcome->failed ? kExitFailed : kExitDone;
}

}  // namespace vk
