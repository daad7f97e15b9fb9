#include "batch/SimulateCommand.h"

#include <array>
#include <cmath>

#include "analysis/Simulation.h"
#include "base/CodePage.h"
#include "batch/Assignment.h"
#include "batch/DataInput.h"
#include "batch/FitCommand.h"
#include "batch/Seed.h"
#include "batch/TerminalPorts.h"
#include "commands/ExhaustedBox.h"
#include "commands/SimulationCommand.h"
#include "data/DataFiles.h"
#include "platform/system/SystemRandom.h"
#include "session/Session.h"

namespace vk {
namespace {

constexpr int kMostPoints = 32767;

/// A number of an option; `otherwise` where it is left out.
double number(const char* option, const std::string& text, double otherwise) {
  return text.empty() ? otherwise : parseNumber(option, text);
}

/// The program itself would only speak of an overflow.
double numberOfPoints(const std::string& text, double otherwise) {
  const double points = number("--points", text, otherwise);
  if (std::abs(points) < kMostPoints + 0.5) return points;
  throw UsageError("simulate: --points \"" + text + "\": si attende un numero fino a " +
                   std::to_string(kMostPoints));
}

/// The numbers that the fields of the form would have.
std::array<double, 7> wantedFields(const SimulateArguments& arguments) {
  const SimulationSettings first = firstSettings();
  const double xmin = number("--xmin", arguments.xmin, first.SimXMin);
  const double xmax = number("--xmax", arguments.xmax, first.SimXMax);
  const double points = numberOfPoints(arguments.points, first.SimPoints);
  const double dy = number("--dy", arguments.dy, first.SimErrY);
  const double dx = number("--dx", arguments.dx, first.SimErrX);
  return {xmin, xmax, points, dy, arguments.dyAbsolute ? 1.0 : 0, dx, arguments.dxAbsolute ? 1.0 : 0};
}

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

Json parameters(const ParameterSet& par) {
  Json::List list;
  for (int i = 1; i <= par.ParCount; ++i) {
    list.push_back(
        Json::Object{{"name", toUtf8(par.name(i), CodePage::kCp437)}, {"value", par.ParValues[i]}});
  }
  return list;
}

}  // namespace

int runSimulate(const SimulateArguments& arguments) {
  dataDigits(arguments.digits);
  Session session;
  TerminalFiles files;
  SystemRandom random;
  TerminalDialogs dialogs("simulate");
  chooseModel(session, files, arguments.model, parameterNames(arguments.parameters));
  enterStart(session, arguments.parameters);
  const float seed = seedFrom(arguments.seed, random);
  const ParameterSet truth = session.analysis.par;
  ExhaustedBox listener(dialogs);
  if (!SimulateData(session, wantedFields(arguments), dialogs, random, listener)) return kExitBadInput;
  const FitForm form = arguments.json ? FitForm::kJson : FitForm::kScreen;
  FitOutcome outcome = fitAtTerminal(session, dialogs, listener, {.form = form});
  if (arguments.json) {
    outcome.report = Json::Object{{"schema_version", kSchemaVersion},
                                  {"settings", settings(session.analysis.sim, seed)},
                                  {"truth", parameters(truth)},
                                  {"fit", outcome.report}};
  }
  printOutcome(outcome, form);
  if (!arguments.outputFile.empty())
    writeData(files, arguments.outputFile, session.loaded.data, arguments.digits);
  return outcome.fitted() ? kExitDone : kExitFailed;
}

}  // namespace vk
