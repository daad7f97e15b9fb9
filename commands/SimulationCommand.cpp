#include "commands/SimulationCommand.h"

#include "analysis/Simulation.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "commands/DisplayRefresh.h"
#include "commands/ExhaustedBox.h"
#include "commands/FitCommand.h"
#include "commands/FormDescription.h"
#include "commands/RandomSource.h"

namespace vk {
namespace {

// ---- Texts ------------------------------------------------------------------------------------------------

constexpr const char* kSimulationCaption = "VOR_KEL: Simulazione Dati";
constexpr std::array kPrompts{"x Minimo                  ", "x Massimo                 ",
                              "Numero Punti              ", "Incertezza di y           ",
                              "Inc. y (0=Perc., <>0=Ass.)", "Incertezza di x           ",
                              "Inc. x (0=Perc., <>0=Ass.)"};

constexpr const char* kCorrectionsCaption = "Vor_Kel: Simulazione Dati";
constexpr const char* kCorrectionsHead =
    "Immissione Dati NON Ragionevole! Segue Elenco e Correzione Proposta.\r";
// The lines of the corrections, each ended by CR.
constexpr const char* kTooFewPoints[] = {"*** Numero di Punti (", ") Non Maggiore del Numero di Parametri (",
                                         ")\r___ Posto Numero di Punti = Numero di Parametri +1\r"};
constexpr const char* kLimitsExchanged = "*** Xmin > Xmax: Scambiati Xmin e Xmax\r";
constexpr const char* kLimitMoved = "*** Xmin = Xmax: Posto Xmax = Xmin +1\r";
constexpr const char* kErrorOfYSet = "*** Incertezza di y = 0: Posto Incertezza di y = 1\r";
constexpr const char* kOverflowWord = "Overflow";

// ---- The form ---------------------------------------------------------------------------------------------

constexpr int kFieldCount = kPrompts.size();
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
  const auto settings = settingsTexts(session.analysis.SimFirstTime ? firstSettings() : session.analysis.sim);
  describeFieldCount(form, kFieldCount);
  for (int i = 1; i <= kFieldCount; ++i) {
    const auto k = static_cast<std::size_t>(i - 1);
    describeField(form, i,
                  {.row = rowOf(i),
                   .promptColumn = 3,
                   .prompt = kPrompts[k],
                   .promptLength = kSimulationPromptWidth,
                   .column = kSimulationPromptWidth + 6,
                   .width = -18,
                   .kind = "#Number",
                   .value = settings[k]});
  }
}

// ---- The settings -----------------------------------------------------------------------------------------

/// The lines of a correction, each ended by CR.
std::string correctionText(Correction correction, const SimulationSettings& sim, int freeCount) {
  switch (correction) {
    case Correction::kPoints:
      // QUIRK: the count told is the corrected one, not what was typed.
      return kTooFewPoints[0] + generalText(sim.SimPoints) + kTooFewPoints[1] + generalText(freeCount) +
             kTooFewPoints[2];
    case Correction::kExchanged:
      return kLimitsExchanged;
    case Correction::kMoved:
      return kLimitMoved;
    case Correction::kErrorOfY:
      break;
  }
  return kErrorOfYSet;
}

/// Tells what was not reasonable in the settings. True when the user wants to go on with what was corrected, or when
/// there was nothing.
bool acceptCorrections(Dialogs& dialogs, const SimulatedData& simulated, int freeCount) {
  constexpr int kContinue = 2;
  if (simulated.corrections.empty()) return true;
  std::string report;
  for (const Correction correction : simulated.corrections) {
    report += correctionText(correction, simulated.settings, freeCount);
  }
  return dialogs.Get_Msg({.caption = kCorrectionsCaption,
                          .text = WindowText(kCorrectionsHead + report),
                          .icon = kExclamation,
                          .captions = {kGiveUpButton, kContinueButton}}) == kContinue;
}

// ---- The data ---------------------------------------------------------------------------------------------

constexpr const char* kDataName = "SIMULA.DAT";

void takeData(Session& session, const SimulatedData& simulated) {
  session.analysis.sim = simulated.settings;
  session.loaded.data = simulated.data;
  session.loaded.DataFile = session.loaded.DataPath = kDataName;
  session.loaded.DataDefined = kTrue;
  session.analysis.SimFirstTime = kFalse;
}

}  // namespace

void MenDatSim(Session& session, Ports& ports) {
  const auto fields = askSimulation(session, ports.input);
  if (!fields) return;
  ExhaustedBox listener(ports.dialogs);
  ParameterSet& par = session.analysis.par;
  const Array<double> truth = par.ParValues;
  const bool simulated = SimulateData(session, *fields, ports.dialogs, ports.random, listener);
  Msg(session, ports.window);
  if (!simulated) return;
  fitOnScreen(session, ports, listener);
  for (int i = 1; i <= par.FreeCount; ++i) {
    const int parameter = par.FreeIndex[i];
    par.ParValues[parameter] = truth[parameter];
  }
}

std::optional<std::array<double, 7>> askSimulation(Session& session, InputForm& form) {
  InputTables& tables = session.input;
  describeFields(session, tables);
  tables.InpRows = kRows;
  tables.InpCols = kSimulationColumns;
  describeFrames(tables, {{3, 1, kRows, kSimulationColumns},
                          {3, kSimulationPromptWidth + 4, kRows, kSimulationColumns},
                          {1, 1, kRows, kSimulationColumns}});
  describeTexts(tables, {{1, kSimulationColumns / 2, kFunctionHead},
                         {2, kSimulationColumns / 2, trim(session.analysis.fun.FunctionText)}});
  tables.caption = kSimulationCaption;
  tables.topic = ManualTopic::kSimulation;
  if (!askForm(session, form)) return std::nullopt;
  std::array<double, kFieldCount> numbers;
  for (int i = 1; i <= kFieldCount; ++i)
    numbers[static_cast<std::size_t>(i - 1)] = scanNumber(tables.InpValues[i].bytes());
  return numbers;
}

bool SimulateData(Session& session, std::span<const double, 7> fields, Dialogs& dialogs, Random& random,
                  EvaluationListener& listener) {
  ParameterSet& par = session.analysis.par;
  RandomSource source(random);
  SimulatedData simulated;
  try {
    simulated = simulate(settingsOf(fields), session.analysis.model, par, source, listener);
  } catch (const RuntimeError& error) {
    if (error.number() != kOverflow) throw;
    dialogs.plainBox(kProgramTitle, kOverflowWord);
    return false;
  }
  takeData(session, simulated);
  scatterStart(par, source);
  return acceptCorrections(dialogs, simulated, par.FreeCount);
}

}  // namespace vk
