#pragma once

#include <string>
#include <vector>

#include "batch/DerivedTable.h"
#include "batch/FitFigures.h"
#include "batch/Json.h"
#include "batch/ModelChoice.h"
#include "batch/ParameterValues.h"
#include "platform/Dialogs.h"

namespace vk {

struct Session;

/// `fit`: one fit of a data file.
struct FitArguments {
  std::string dataFile;
  ModelArguments model;
  std::vector<EnteredValue> parameters;  ///< with a formula also its parameters, in their order
  std::vector<std::string> derived;      ///< "name=formula" of quantities computed of the parameters
  bool json = false;
  WantedFigures figures;
};

/// What a fit has to say at a terminal.
struct FitOutcome {
  bool failed = false;
  bool derivedFailed = false;  ///< a derived quantity, or its error, could not be computed
  std::string screen;          ///< UTF-8; empty after a failure
  Json report;                 ///< null unless it was asked for
};

/// Fits the session's model to its data and computes the derived quantities, with the progress and the reason of a
/// failure on the error stream.
FitOutcome fitAtTerminal(Session& session, Dialogs& dialogs, EvaluationListener& listener,
                         DerivedTable derived, bool withReport);

/// Prints the screen, or the report where it was asked for.
void printOutcome(const FitOutcome& outcome, bool asReport);

/// Runs the fit, prints the report, as text or as JSON, and makes the figures asked for. Gives 0, or 1 when the
/// fit or a figure failed. Bad arguments and bad files raise `UsageError`. `maker` is needed only for a figure
/// that is drawn.
int runFit(const FitArguments& arguments, FigureMaker* maker);

}  // namespace vk
