#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/WeightedResiduals.h"
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
  bool refine = false;                   ///< finds the true minimum too
  bool profile = false;                  ///< and the intervals about it
  std::string xErrors;                   ///< the word of an `XErrors`; empty for the first one
  bool json = false;
  WantedFigures figures;
};

/// What a fit at a terminal is to do besides.
struct FitWishes {
  bool report = false;
  std::optional<XErrors> refine{};  ///< the true minimum is sought, with this account of errors in x
  bool profile = false;             ///< and the intervals about it
  std::optional<BandWish> band{};   ///< goes to the figures of the session
  DerivedTable derived{};
  std::string dataFile{};  ///< of the report; empty for data of no file
};

/// What a fit has to say at a terminal.
struct FitOutcome {
  bool fitted = false;
  bool converged = false;      ///< to the true minimum
  bool derivedFailed = false;  ///< a derived quantity, or its error, could not be computed
  bool bandFailed = false;     ///< the figures have none, though it was asked for
  std::string screen;          ///< UTF-8; empty without a result
  Json report;                 ///< null unless it was asked for
};

/// Fits the session's model to its data, finds the true minimum and computes the derived quantities, by that minimum
/// where there is one. Progress and the reason of a failure go to the error stream.
FitOutcome fitAtTerminal(Session& session, Dialogs& dialogs, EvaluationListener& listener, FitWishes wishes);

/// Prints the screen, or the report where it was asked for.
void printOutcome(const FitOutcome& outcome, bool asReport);

/// Runs the fit, prints the report, as text or as JSON, and makes the figures asked for, which show the fit. Gives 0, or
/// 1 when one of them failed; a fit that failed is made good by a minimum that was found. Bad arguments and bad files raise `UsageError`. `maker` is needed only for a figure
/// that is drawn.
int runFit(const FitArguments& arguments, FigureMaker* maker);

}  // namespace vk
