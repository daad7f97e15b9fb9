#include "batch/FitCommand.h"

#include <cmath>
#include <iostream>

#include "analysis/LinearisedErrors.h"
#include "batch/DataInput.h"
#include "batch/FitReport.h"
#include "batch/ProfileTable.h"
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

/// A fit of the session's model and what is made of it.
class TerminalFit {
 public:
  TerminalFit(Session& session, EvaluationListener& listener, FitWishes wishes)
      : session_(session),
        listener_(listener),
        wishes_(std::move(wishes)),
        problem_{session.loaded.data, session.analysis.model, listener},
        start_(session.analysis.par) {}

  FitOutcome run(Dialogs& dialogs) {
    fit(dialogs);
    if (wishes_.refine) refine(*wishes_.refine);
    if (wishes_.profile && refined_.covariance.size() > 0) profile();
    if (outcome_.fitted && (wishes_.report || wishes_.band || !wishes_.derived.empty()))
      linearised_ = linearisedCovariance(problem_, result_.par, result_.chi_square);
    if (!wishes_.derived.empty() && (outcome_.fitted || outcome_.converged)) derive();
    if (outcome_.fitted && wishes_.band) addBand(*wishes_.band);
    if (wishes_.report) report();
    return std::move(outcome_);
  }

 private:
  void fit(Dialogs& dialogs);
  void refine(XErrors xErrors);
  void profile();
  void derive();
  void addBand(const BandWish& wish);
  void report();
  std::optional<CovarianceMatrix> covariance() const;

  Session& session_;
  EvaluationListener& listener_;
  FitWishes wishes_;
  const FitProblem problem_;
  const ParameterSet start_;
  FitResult result_;
  std::optional<CovarianceMatrix> linearised_;
  RefinedFit refined_;
  std::vector<FitWarning> warnings_;
  std::vector<ProfileIntervals> intervals_;
  FitOutcome outcome_;
};

void TerminalFit::fit(Dialogs& dialogs) {
  SystemClock clock;
  GridOutput output;
  FitScreen screen(session_.analysis.fun.FunctionText, session_.analysis.par, {output, dialogs, clock});
  TerminalProgress observer(screen);
  result_ = FitData(session_, listener_, observer);
  outcome_.fitted = result_.status != FitStatus::kFailed;
  if (outcome_.fitted) {
    outcome_.screen = output.grid().toUtf8();
  } else {
    std::cerr << "Adattamento non riuscito: " << result_.reason << '\n';
  }
}

void TerminalFit::refine(XErrors xErrors) {
  refined_ = vk::refine(problem_, start_, &result_, xErrors);
  warnings_ = fitWarnings(problem_.data, result_, refined_);
  outcome_.converged = refined_.converged();
  outcome_.screen += refinedTable(problem_.data, refined_, warnings_).toUtf8();
  if (!outcome_.fitted && outcome_.converged)
    std::cerr << "La seconda minimizzazione ha raggiunto il minimo\n";
}

void TerminalFit::profile() {
  intervals_ = profileIntervals(problem_, refined_);
  outcome_.screen += profileScreen(refined_.par, intervals_);
}

/// The covariances of the true minimum where there is one.
std::optional<CovarianceMatrix> TerminalFit::covariance() const {
  if (!outcome_.converged) return linearised_;
  return refined_.covariance.size() > 0 ? std::optional(refined_.covariance) : std::nullopt;
}

void TerminalFit::derive() {
  const FittedValues fitted{.par = outcome_.converged ? refined_.par : result_.par,
                            .covariance = covariance(),
                            .refined = outcome_.converged,
                            .reducedChiSquare = refined_.reducedChiSquare};
  outcome_.derivedFailed = !wishes_.derived.compute(fitted, listener_);
  outcome_.screen += wishes_.derived.screen();
}

// Where nobody knows the errors of the points, their scatter tells that of the function.
void TerminalFit::addBand(const BandWish& wish) {
  const auto known = covariance();
  outcome_.bandFailed = !known;
  if (!known) {
    std::cerr << kNoBand;
    return;
  }
  const bool invented = haveInventedErrors(problem_.data) && result_.reduced_chi_square;
  const double scatter = invented ? std::sqrt(*result_.reduced_chi_square) : 1;
  const double factor = scatter * intervalFactor(wish.percent, invented ? result_.degrees_of_freedom : 0);
  session_.figures.band = CurveBand{*known, factor, wish.prediction};
}

void TerminalFit::report() {
  const FunctionDef& fun = session_.analysis.fun;
  const FitOrigin origin{wishes_.dataFile, fun.FunctionText,
                         ComposeFunctionText(session_.loaded.catalogue, fun), start_};
  outcome_.report = fitReport(origin, result_, linearised_);
  if (wishes_.refine) {
    outcome_.report.add("refined", refinedReport(problem_.data, refined_));
    outcome_.report.add("warnings", warningsReport(warnings_));
  }
  if (!intervals_.empty()) outcome_.report.add("profile", profileReport(refined_.par, intervals_));
  if (!wishes_.derived.empty()) outcome_.report.add("derived", wishes_.derived.report());
}

/// How `--refine` is to treat errors in x.
std::optional<XErrors> refineWish(const FitArguments& arguments, const DataSet& data) {
  if (!arguments.refine) return std::nullopt;
  if (arguments.xErrors.empty()) return XErrors::kEffective;
  if (data.kXpntErr == kFalse) throw UsageError("--x-errors: i dati non hanno errori di x");
  for (const XErrors choice : {XErrors::kEffective, XErrors::kOrthogonal}) {
    if (textOf(choice).word == arguments.xErrors) return choice;
  }
  throw UsageError("--x-errors: si attende effective o orthogonal");
}

}  // namespace

FitOutcome fitAtTerminal(Session& session, Dialogs& dialogs, EvaluationListener& listener, FitWishes wishes) {
  return TerminalFit(session, listener, std::move(wishes)).run(dialogs);
}

void printOutcome(const FitOutcome& outcome, bool asReport) {
  std::cout << (asReport ? outcome.report.text() + "\n" : outcome.screen);
}

int runFit(const FitArguments& arguments, FigureMaker* maker) {
  FitFigures figures(arguments.figures, maker);
  Session session;
  TerminalFiles files;
  TerminalDialogs dialogs;
  loadData(session, files, dialogs, arguments.dataFile);
  chooseModel(session, files, arguments.model, parameterNames(arguments.parameters));
  enterStart(session, arguments.parameters);
  FitWishes wishes{.report = arguments.json,
                   .refine = refineWish(arguments, session.loaded.data),
                   .profile = arguments.profile,
                   .band = bandWish(arguments.figures),
                   .derived = {arguments.derived, session.analysis.par},
                   .dataFile = shownName(arguments.dataFile)};
  ExhaustedBox listener(dialogs);
  const FitOutcome outcome = fitAtTerminal(session, dialogs, listener, std::move(wishes));
  printOutcome(outcome, arguments.json);
  const bool done =
      outcome.fitted ? figures.write(session, listener) : outcome.converged && !arguments.figures.any();
  return done && !outcome.derivedFailed && !outcome.bandFailed ? kExitDone : kExitFailed;
}

}  // namespace vk
