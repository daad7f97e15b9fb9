#include "commands/SimulationCommand.h"

#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "analysis/RandomSource.h"
#include "base/CheckedMath.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "commands/FormDescription.h"
#include "expr/CmpMod.h"
#include "session/Msg.h"

namespace vk {
namespace {

// ---- The form ----------------------------------------------------------------------------------------------

struct FieldOfForm {
  const char* prompt;
  const char* first;  ///< content before the first simulation with a function
};
constexpr std::array<FieldOfForm, 7> kFields{{{"x Minimo                  ", "0"},
                                              {"x Massimo                 ", "10"},
                                              {"Numero Punti              ", "11"},
                                              {"Incertezza di y           ", "1"},
                                              {"Inc. y (0=Perc., <>0=Ass.)", "0"},
                                              {"Incertezza di x           ", "0"},
                                              {"Inc. x (0=Perc., <>0=Ass.)", "0"}}};
constexpr int kFieldCount = kFields.size();
constexpr int kRows = 13;
constexpr int kSimulationPromptWidth = 26;
constexpr int kSimulationColumns = kSimulationPromptWidth + 24;

/// The fields of the points, of the error of y and of that of x stand apart.
int rowOf(int field) {
  return field + 3 + (field >= 4 ? 1 : 0) + (field >= 6 ? 1 : 0);
}

std::array<std::string, kFieldCount> settingsTexts(const SimulationSettings& sim) {
  return {generalText(sim.SimXMin),   generalText(sim.SimXMax),    generalText(sim.SimPoints),
          generalText(sim.SimErrY),   generalText(sim.SimErrYAbs), generalText(sim.SimErrX),
          generalText(sim.SimErrXAbs)};
}

void describeFields(const Session& session, InputTables& form) {
  const auto settings = settingsTexts(session.analysis.sim);
  describeFieldCount(form, kFieldCount);
  for (int i = 1; i <= kFieldCount; ++i) {
    const auto k = static_cast<std::size_t>(i - 1);
    describeField(form, i,
                  {.row = rowOf(i),
                   .promptColumn = 3,
                   .prompt = kFields[k].prompt,
                   .promptLength = kSimulationPromptWidth,
                   .column = kSimulationPromptWidth + 6,
                   .width = -18,
                   .kind = "#Number",
                   .value = session.analysis.SimFirstTime ? kFields[k].first : settings[k]});
  }
}

// ---- The settings ------------------------------------------------------------------------------------------

SimulationSettings enteredSettings(const InputTables& form) {
  const auto number = [&](int field) { return scanNumber(form.InpValues[field]); };
  SimulationSettings sim;
  sim.SimXMin = number(1);
  sim.SimXMax = number(2);
  sim.SimPoints = toInt16(std::abs(number(3)));
  sim.SimErrY = std::abs(number(4));
  sim.SimErrYAbs = toInt16(number(5));
  sim.SimErrX = std::abs(number(6));
  sim.SimErrXAbs = toInt16(number(7));
  return sim;
}

/// Makes the settings reasonable and gives a line, ended by CR, for each thing that was not.
std::string correct(SimulationSettings& sim, int freeCount) {
  std::string report;
  if (sim.SimPoints <= freeCount) {
    sim.SimPoints = freeCount + 1;
    // QUIRK: the count told is the corrected one, not what was typed.
    report += "*** Numero di Punti (" + generalText(sim.SimPoints) +
              ") Non Maggiore del Numero di Parametri (" + generalText(freeCount) + ")\r" +
              "___ Posto Numero di Punti = Numero di Parametri +1\r";
  }
  if (sim.SimXMin > sim.SimXMax) {
    std::swap(sim.SimXMin, sim.SimXMax);
    report += "*** Xmin > Xmax: Scambiati Xmin e Xmax\r";
  }
  if (sim.SimXMin == sim.SimXMax) {
    sim.SimXMax = sim.SimXMin + 1;
    report += "*** Xmin = Xmax: Posto Xmax = Xmin +1\r";
  }
  if (sim.SimErrY == 0) {
    sim.SimErrY = 1;
    report += "*** Incertezza di y = 0: Posto Incertezza di y = 1\r";
  }
  return report;
}

// ---- The data ----------------------------------------------------------------------------------------------

constexpr const char* kDataName = "SIMULA.DAT";
constexpr double kErrorOfZero = 0.001;
constexpr double kScatter = 0.4;  // from the lowest to the highest factor

/// The error of a value: as entered, or that percentage of the value.
// QUIRK: a percentage keeps the sign of the value, so that negative values have negative errors.
double errorOf(double value, double entered, int absolute) {
  return absolute != 0 ? entered : checked::finite(value * entered) / 100;
}

std::vector<double> equallySpaced(const SimulationSettings& sim) {
  const double step =
      checked::divide(checked::finite(sim.SimXMax - sim.SimXMin), static_cast<double>(sim.SimPoints - 1));
  std::vector<double> x;
  for (int i = 0; i < sim.SimPoints; ++i) x.push_back(checked::finite(i * step + sim.SimXMin));
  return x;
}

DataSet simulated(Session& session, Dialogs& dialogs, Random& random, const SimulationSettings& sim) {
  const std::vector<double> x = equallySpaced(sim);
  std::vector<double> y(x.size());
  evaluateFunctionAt(session, dialogs, x, y);

  DataSet data;
  data.TitleX = "x";
  data.TitleY = "y";
  data.allocate(sim.SimPoints, toFlag(sim.SimErrX > 0));
  GaussianState deviates;
  const auto scattered = [&](double value, double error) {
    return checked::finite(normalDeviate(random, deviates) * error + value);
  };
  for (int i = 1; i <= sim.SimPoints; ++i) {
    const auto k = static_cast<std::size_t>(i - 1);
    const double dy = errorOf(y[k], sim.SimErrY, sim.SimErrYAbs);
    data.ErrYpnt[i] = dy == 0 ? kErrorOfZero : dy;
    data.Ypnt[i] = scattered(y[k], data.ErrYpnt[i]);
    data.Xpnt[i] = x[k];
    if (data.kXpntErr == 0) continue;
    data.ErrXpnt[i] = errorOf(x[k], sim.SimErrX, sim.SimErrXAbs);
    data.Xpnt[i] = scattered(x[k], data.ErrXpnt[i]);
  }
  return data;
}

void scatterStart(ParameterSet& par, Random& random) {
  for (int i = 1; i <= par.FreeCount; ++i) {
    par.FreeValues[i] = checked::finite(par.FreeValues[i] * ((random.next() - 0.5) * kScatter + 1));
  }
}

/// Runs the fit and puts the true values back.
void fitSimulated(ParameterSet& par, const Array<double>& truth, const std::function<void()>& fit) {
  fit();
  for (int i = 1; i <= par.FreeCount; ++i) {
    const int parameter = par.FreeIndex[i];
    par.ParValues[parameter] = truth[parameter];
  }
}

/// True when the user wants to go on with what was corrected.
bool accepted(Dialogs& dialogs, const std::string& report) {
  constexpr int kContinue = 2;
  return dialogs.Get_Msg(
             {.caption = "Vor_Kel: Simulazione Dati",
              .text = "Immissione Dati NON Ragionevole! Segue Elenco e Correzione Proposta.\r" + report,
              .icon = kExclamation,
              .captions = {"&Rinuncia", "&Continua"}}) == kContinue;
}

}  // namespace

void MenDatSim(Session& session, InputForm& form) {
  InputTables& tables = session.input;
  describeFields(session, tables);
  tables.InpRows = kRows;
  tables.InpCols = kSimulationColumns;
  describeFrames(tables, {{3, 1, kRows, kSimulationColumns},
                          {3, kSimulationPromptWidth + 4, kRows, kSimulationColumns},
                          {1, 1, kRows, kSimulationColumns}});
  describeTexts(tables, {{1, kSimulationColumns / 2, "Funzione"},
                         {2, kSimulationColumns / 2, trim(session.analysis.fun.FunctionText)}});
  tables.InpAction = kSimulateData;
  tables.caption = "VOR_KEL: Simulazione Dati";
  form.InpShow(tables, Form::kMain);
}

void SimulateData(Session& session, Dialogs& dialogs, MainWindow& window, Random& random,
                  const std::function<void()>& fit) {
  ParameterSet& par = session.analysis.par;
  SimulationSettings sim;
  std::string report;
  DataSet data;
  try {
    sim = enteredSettings(session.input);
    report = correct(sim, par.FreeCount);
    data = simulated(session, dialogs, random, sim);
  } catch (const RuntimeError& error) {
    if (error.number() != kOverflow) throw;
    dialogs.plainBox(kProgramTitle, "Overflow");
    return;
  }
  session.analysis.sim = sim;
  session.loaded.data = std::move(data);
  session.loaded.DataFile = session.loaded.DataPath = kDataName;
  session.loaded.DataDefined = kTrue;
  session.analysis.SimFirstTime = kFalse;
  const Array<double> truth = par.ParValues;
  scatterStart(par, random);
  const bool goesOn = report.empty() || accepted(dialogs, report);
  Msg(session, window);
  if (goesOn) fitSimulated(par, truth, fit);
}

}  // namespace vk
