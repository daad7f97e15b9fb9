#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/FitFigures.h"
#include "batch/FitFindings.h"
#include "batch/Json.h"
#include "batch/ModelChoice.h"
#include "batch/ParameterValues.h"
#include "platform/Dialogs.h"

namespace vk {

struct Session;

/// In which form a fit is printed; the last two give one line for each.
enum class FitForm { kScreen, kRounded, kJson, kLatex, kJsonLines, kCsv };
inline bool hasLines(FitForm form) {
  return form >= FitForm::kJsonLines;
}

/// `fit`: one fit of each data file.
struct FitArguments {
  std::vector<std::string> dataFiles;
  ModelArguments model;
  std::vector<EnteredValue> parameters;  ///< with a formula also its parameters, in their order
  std::vector<std::string> derived;      ///< "name=formula" of quantities computed of the parameters
  bool refine = false;                   ///< finds the true minimum too
  bool profile = false;                  ///< and the intervals about it
  std::string xErrors;                   ///< the word of an `XErrors`; empty for the first one
  FitForm form = FitForm::kScreen;
  int jobs = 1;  ///< fits of several files that run at once
  WantedFigures figures;
};

/// What a fit at a terminal is to do besides.
struct FitWishes {
  FitForm form = FitForm::kScreen;
  FitFindings wanted{};
  std::optional<BandWish> band{};  ///< goes to the figures of the session
  std::string dataFile{};          ///< as a terminal shows it; empty for data of no file
};

/// What a fit has to say at a terminal.
struct FitOutcome {
  bool fitted() const { return found.fitted(); }
  bool converged() const { return found.refined.converged(); }  ///< to the true minimum
  /// True where all that was asked for is there, if need be the minimum in place of a fit.
  bool done() const { return found.hasValues() && !derivedFailed && !bandFailed; }

  std::string dataFile;
  FitFindings found;
  bool derivedFailed = false;  ///< a derived quantity, or its error, could not be computed
  bool bandFailed = false;     ///< the figures have none, though it was asked for
  std::string screen;          ///< UTF-8; empty without a result
  Json report;                 ///< null unless it was asked for
};

/// Fits the session's model to its data, finds the true minimum and computes the derived quantities, by that minimum
/// where there is one. Progress and the reason of a failure go to the error stream.
FitOutcome fitAtTerminal(Session& session, Dialogs& dialogs, EvaluationListener& listener, FitWishes wishes);

/// Prints the fit in the form that was asked for.
void printOutcome(const FitOutcome& outcome, FitForm form);

/// Makes the model of the arguments the session's current one, with its starting values. Bad ones raise `UsageError`.
void chooseFitModel(Session& session, Files& files, const FitArguments& arguments);

/// What the arguments ask for beside the fit of the session's model. Bad ones raise `UsageError`.
FitFindings wantedFindings(const Session& session, const FitArguments& arguments);

/// Fits the session's model to its data, which come from the file, as the arguments ask for it.
FitOutcome fitLoaded(Session& session, const FitArguments& arguments, const std::string& dataFile);

/// Runs the fits and prints them. The figures asked for show the fit of a single file. Gives 0, or 1 when something
/// failed; a fit that failed is made good by a minimum that was found. Bad arguments, and a single bad file, raise
/// `UsageError`. `maker` is needed only for a figure that is drawn.
int runFit(const FitArguments& arguments, FigureMaker* maker);

}  // namespace vk
