#include "batch/FitCommand.h"

#include <cmath>
#include <iostream>

#include "analysis/LinearisedErrors.h"
#include "batch/DataInput.h"
#include "batch/FitCsv.h"
#include "batch/FitReport.h"
#include "batch/ManyFits.h"
#include "batch/ProfileTable.h"
#include "batch/RoundedFit.h"
#include "batch/TerminalPorts.h"
#include "batch/TerminalProgress.h"
#include "commands/ExhaustedBox.h"
#include "commands/FitCommand.h"
#include "commands/FitScreen.h"
#include "commands/RefinedTable.h"
#include "platform/GridOutput.h"
#include "platform/system/SystemClock.h"
#include "session/Session.h"

namespace vk {
namespace {

/// Why a fit failed, with the name of the parameter that is to blame.
std::string reasonOf(const FitFailure& failure, const ParameterSet& par, const std::string& reason) {
  if (failure.end != MinimiseEnd::kNoEffect) return reason;
  return "il parametro " + terminalText(par.name(par.FreeIndex[failure.parameter])) + " NON cambia i residui";
}

/// A fit of the session's model and what is made of it.
class TerminalFit {
 public:
  TerminalFit(Session& session, EvaluationListener& listener, FitWishes wishes)
      : session_(session),
        listener_(listener),
        wishes_(std::move(wishes)),
        problem_{session.loaded.data, session.analysis.model, listener} {
    outcome_.dataFile = std::move(wishes_.dataFile);
    found_ = std::move(wishes_.wanted);
    found_.start = session.analysis.par;
  }

  FitOutcome run(Dialogs& dialogs) {
    fit(dialogs);
    if (found_.xErrors) refine(*found_.xErrors);
    if (found_.profile && outcome_.converged()) profile();
    const bool needsErrors = wishes_.form != FitForm::kScreen || wishes_.band || !found_.derived.empty();
    if (found_.fitted() && needsErrors)
      found_.linearised = linearisedCovariance(problem_, found_.result.par, *found_.result.chi_square);
    if (!found_.derived.empty() && (found_.fitted() || outcome_.converged())) derive();
    if (found_.fitted() && wishes_.band) addBand(*wishes_.band);
    if (wishes_.form == FitForm::kJson || wishes_.form == FitForm::kJsonLines) report();
    return std::move(outcome_);
  }

 private:
  void fit(Dialogs& dialogs);
  void refine(XErrors xErrors);
  void profile();
  void derive();
  void addBand(const BandWish& wish);
  void report();

  Session& session_;
  EvaluationListener& listener_;
  FitWishes wishes_;
  const FitProblem problem_;
  std::vector<FitWarning> warnings_;
  FitOutcome outcome_;
  FitFindings& found_ = outcome_.found;
};

void TerminalFit::fit(Dialogs& dialogs) {
  SystemClock clock;
  GridOutput output;
  FitScreen screen(session_.analysis.fun.FunctionText, session_.analysis.par, {output, dialogs, clock});
  TerminalProgress observer(screen);
  found_.result = FitData(session_, listener_, observer);
  if (found_.fitted()) {
    outcome_.screen = output.grid().toUtf8();
  } else {
    std::cerr << "Adattamento non riuscito: "
              << reasonOf(observer.failure(), session_.analysis.par, found_.result.reason) << '\n';
  }
}

void TerminalFit::refine(XErrors xErrors) {
  found_.refined = vk::refine(problem_, found_.start, &found_.result, xErrors);
  warnings_ = fitWarnings(problem_.data, found_.result, found_.refined);
  outcome_.screen += refinedTable(problem_.data, found_.refined, warnings_).toUtf8();
  if (!outcome_.fitted() && outcome_.converged())
    std::clog << "La seconda minimizzazione ha raggiunto il minimo\n";
}

void TerminalFit::profile() {
  found_.intervals = profileIntervals(problem_, found_.refined);
  outcome_.screen += profileScreen(found_.refined.par, found_.intervals);
}

void TerminalFit::derive() {
  const FittedValues fitted{.par = found_.par(),
                            .covariance = found_.covariance(),
                            .refined = outcome_.converged(),
                            .reducedChiSquare = found_.refined.reducedChiSquare};
  outcome_.derivedFailed = !found_.derived.compute(fitted, listener_);
  outcome_.screen += found_.derived.screen();
}

// Where nobody knows the errors of the points, their scatter tells that of the function.
void TerminalFit::addBand(const BandWish& wish) {
  const auto known = found_.covariance();
  outcome_.bandFailed = !known;
  if (!known) {
    std::cerr << kNoBand;
    return;
  }
  const bool invented = haveInventedErrors(problem_.data) && found_.result.reduced_chi_square;
  const double scatter = invented ? std::sqrt(*found_.result.reduced_chi_square) : 1;
  const double factor =
      scatter * intervalFactor(wish.percent, invented ? found_.result.degrees_of_freedom : 0);
  session_.figures.band = CurveBand{*known, factor, wish.prediction, wish.percent};
}

void TerminalFit::report() {
  const FunctionDef& fun = session_.analysis.fun;
  const FitOrigin origin{outcome_.dataFile, fun.FunctionText,
                         ComposeFunctionText(session_.loaded.catalogue, fun), found_.start};
  outcome_.report = fitReport(origin, found_.result, found_.linearised);
  if (found_.xErrors) {
    outcome_.report.add("refined", refinedReport(problem_.data, found_.refined));
    outcome_.report.add("warnings", warningsReport(warnings_));
  }
  if (!found_.intervals.empty())
    outcome_.report.add("profile", profileReport(found_.refined.par, found_.intervals));
  if (!found_.derived.empty()) outcome_.report.add("derived", found_.derived.report());
}

/// How `--refine` is to treat errors in x.
std::optional<XErrors> refineWish(const FitArguments& arguments) {
  if (!arguments.refine) return std::nullopt;
  if (arguments.xErrors.empty()) return XErrors::kEffective;
  for (const XErrors choice : {XErrors::kEffective, XErrors::kOrthogonal}) {
    if (textOf(choice).word == arguments.xErrors) return choice;
  }
  throw UsageError("--x-errors: si attende effective o orthogonal");
}

int runOneFit(const FitArguments& arguments, FigureMaker* maker) {
  FitFigures figures(arguments.figures, maker);
  Session session;
  TerminalFiles files;
  TerminalDialogs dialogs("fit");
  const std::string& dataFile = arguments.dataFiles.front();
  loadData(session, files, dataFile);
  chooseFitModel(session, files, arguments);
  const FitOutcome outcome = fitLoaded(session, arguments, dataFile);
  printOutcome(outcome, arguments.form);
  if (!outcome.fitted()) return outcome.done() && !arguments.figures.any() ? kExitDone : kExitFailed;
  ExhaustedBox listener(dialogs);
  return figures.write(session, listener) && outcome.done() ? kExitDone : kExitFailed;
}

void requireSense(const FitArguments& arguments) {
  constexpr int kMostJobs = 1000;
  if (arguments.jobs < 1 || arguments.jobs > kMostJobs)
    throw UsageError("--jobs: si attende un numero da 1 a " + std::to_string(kMostJobs));
  const bool single = arguments.dataFiles.size() == 1 && !hasLines(arguments.form);
  if (!single && arguments.form == FitForm::kJson)
    throw UsageError("--json: per piu` di un file serve --json-lines");
  if (!single && (arguments.figures.any() || !arguments.figures.band.empty()))
    throw UsageError("Grafici e differenze: solo di un file alla volta, senza --csv e --json-lines");
}

}  // namespace

void chooseFitModel(Session& session, Files& files, const FitArguments& arguments) {
  chooseModel(session, files, arguments.model, parameterNames(arguments.parameters));
  enterStart(session, arguments.parameters);
}

FitOutcome fitAtTerminal(Session& session, Dialogs& dialogs, EvaluationListener& listener, FitWishes wishes) {
  return TerminalFit(session, listener, std::move(wishes)).run(dialogs);
}

void printOutcome(const FitOutcome& outcome, FitForm form) {
  switch (form) {
    case FitForm::kScreen:
      std::cout << outcome.screen;
      break;
    case FitForm::kJson:
      std::cout << outcome.report.text() << '\n';
      break;
    case FitForm::kRounded:
      std::cout << roundedLines(outcome.found);
      break;
    case FitForm::kLatex:
      std::cout << latexTable(outcome.found, outcome.dataFile);
      break;
    case FitForm::kJsonLines:
      std::cout << outcome.report.line() << '\n';
      break;
    case FitForm::kCsv:
      std::cout << csvLine(outcome.dataFile, outcome.found) << '\n';
      break;
  }
}

FitFindings wantedFindings(const Session& session, const FitArguments& arguments) {
  FitFindings wanted;
  wanted.start = session.analysis.par;
  wanted.xErrors = refineWish(arguments);
  wanted.profile = arguments.profile;
  wanted.derived = {arguments.derived, session.analysis.par, arguments.model.trace};
  return wanted;
}

FitOutcome fitLoaded(Session& session, const FitArguments& arguments, const std::string& dataFile) {
  if (!arguments.xErrors.empty() && session.loaded.data.kXpntErr == kFalse)
    throw UsageError("--x-errors: i dati non hanno errori di x");
  TerminalDialogs dialogs("fit");
  ExhaustedBox listener(dialogs);
  return fitAtTerminal(session, dialogs, listener,
                       {.form = arguments.form,
                        .wanted = wantedFindings(session, arguments),
                        .band = bandWish(arguments.figures),
                        .dataFile = shownName(dataFile)});
}

int runFit(const FitArguments& arguments, FigureMaker* maker) {
  requireSense(arguments);
  const bool single = arguments.dataFiles.size() == 1 && !hasLines(arguments.form);
  return single ? runOneFit(arguments, maker) : runManyFits(arguments);
}

}  // namespace vk
