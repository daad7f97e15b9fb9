#include <algorithm>
#include <cmath>

#include "analysis/DataResiduals.h"
#include "analysis/FitMod.h"
#include "base/CheckedMath.h"
#include "base/FlagFor.h"
#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "expr/CmpMod.h"
#include "numeric/SpecialFunctions.h"

namespace vk {
namespace {

constexpr double kSlopeSteps = 100;  // of the range of x
constexpr const char* kErrorTitle = "ERRORE !";

const char* failureReason(MinimiseEnd end) {
  switch (end) {
    case MinimiseEnd::kNoEffect:
      return "un parametro variabile NON cambia i residui";
    case MinimiseEnd::kResidualsFailed:
      return "il residuo dell'ultimo punto NON e` calcolabile";
    case MinimiseEnd::kIndistinguishable:
      return "gli effetti dei parametri variabili NON sono distinguibili";
    case MinimiseEnd::kErrorsNotFinite:
      return "errori non finiti";
    case MinimiseEnd::kCompleted:
      break;
  }
  return "";
}

/// Residuals that the observer hears of every so many points, few enough not to look dead.
class WatchedResiduals : public Residuals {
 public:
  WatchedResiduals(Residuals& residuals, FitObserver& observer)
      : residuals_(residuals), observer_(observer) {}
  bool ComputeResiduals(std::span<const double> X, std::span<double> F, double& sum) override {
    points_ += F.size();
    if (points_ >= kPointsAtOnce) {
      points_ = 0;
      observer_.working();
    }
    return residuals_.ComputeResiduals(X, F, sum);
  }

 private:
  static constexpr std::size_t kPointsAtOnce = 50'000;

  Residuals& residuals_;
  FitObserver& observer_;
  std::size_t points_ = 0;
};

class Fit : public MinimiseObserver {
 public:
  Fit(Session& session, Dialogs& dialogs, Clock& clock, FitObserver& observer)
      : session_(session),
        dialogs_(dialogs),
        clock_(clock),
        observer_(observer),
        F_(session.loaded.data.NumPnt),
        W_(session.loaded.data.NumPnt, session.analysis.par.FreeCount) {}

  FitResult run();
  void progress(int iteration, double sum, const Array<double>& X) override;

 private:
  int M() const { return session_.loaded.data.NumPnt; }
  int N() const { return session_.analysis.par.FreeCount; }
  bool minimise(const Array<double>& errors);
  bool complete();
  bool giveUp(const Array<double>& ParValuesBefore, const Array<double>& FreeValuesBefore);
  FitProgress figures(int iteration, double sum, const Array<double>& X);
  void findEffectiveErrors(Array<double>& effective);

  Session& session_;
  Dialogs& dialogs_;
  Clock& clock_;
  FitObserver& observer_;
  Array<double> F_;
  MinimiseWork W_;
  MinimiseResult minimum_;
  FitResult result_;
  float started_ = 0;
};

FitResult Fit::run() {
  DataSet& data = session_.loaded.data;
  session_.ErrFlag = 0;
  result_.M = M();
  result_.N = N();
  result_.degrees_of_freedom = M() - N();
  result_.freeIndex.dim(N());
  for (int i = 1; i <= N(); ++i) result_.freeIndex[i] = session_.analysis.par.FreeIndex[i];

  if (minimise(data.ErrYpnt) && data.kXpntErr != 0) {
    findEffectiveErrors(data.ErrEff);
    const FlagFor out(data.kXpntErr, kFalse);  // marks the second fit as the last one
    minimise(data.ErrEff);
  }
  return result_;
}

bool Fit::minimise(const Array<double>& errors) {
  ParameterSet& par = session_.analysis.par;
  const Array<double> ParValuesBefore = par.ParValues;
  const Array<double> FreeValuesBefore = par.FreeValues;
  observer_.started({M(), N(), par.FreeValues});
  started_ = clock_.timer();
  DataResiduals ofData(session_, dialogs_, errors.span(1, M()));
  WatchedResiduals residuals(ofData, observer_);
  minimum_ = Minimise(residuals, M(), N(), F_, par.FreeValues, par.FreeSteps, MinimiseOptions(), W_, *this);
  const bool hasItsOwnFlag = minimum_.end == MinimiseEnd::kResidualsFailed;
  if (minimum_.end != MinimiseEnd::kCompleted && !hasItsOwnFlag) session_.ErrFlag = kTrue;
  result_.end = minimum_.end;
  result_.reason = failureReason(minimum_.end);
  result_.chi_square = minimum_.FS;
  result_.iterations = minimum_.iterations;
  result_.evaluations += minimum_.evaluations;
  result_.passes = minimum_.passes;
  return minimum_.end == MinimiseEnd::kCompleted ? complete() : giveUp(ParValuesBefore, FreeValuesBefore);
}

bool Fit::complete() {
  ParameterSet& par = session_.analysis.par;
  storeFreeValues(session_, par.FreeValues.span(1, N()));
  for (int i = 1; i <= N(); ++i) par.ParDeltas[par.FreeIndex[i]] = minimum_.errors[i];

  const FitProgress atEnd = figures(minimum_.iterations, minimum_.FS, par.FreeValues);
  const bool unreliable = minimum_.TooCoarse != 0;
  result_.status = unreliable ? FitStatus::kUnreliable : FitStatus::kCompleted;
  if (atEnd.degreesOfFreedom > 0) {
    result_.reduced_chi_square = atEnd.reducedChiSquare;
    result_.confidence_percent = atEnd.confidence;
  }
  result_.correlation = minimum_.correlation;
  const bool last = session_.loaded.data.kXpntErr == 0;
  observer_.finished({atEnd, minimum_.errors, minimum_.correlation, last, unreliable});
  return true;
}

bool Fit::giveUp(const Array<double>& ParValuesBefore, const Array<double>& FreeValuesBefore) {
  ParameterSet& par = session_.analysis.par;
  result_.status = FitStatus::kFailed;
  result_.reduced_chi_square.reset();
  result_.confidence_percent.reset();
  result_.correlation = {};
  if (minimum_.end == MinimiseEnd::kNoEffect) {
    dialogs_.plainBox(kErrorTitle, "E(" + signedText(minimum_.parameter) +
                                       ") ECCESSIVAMENTE PICCOLO!   "
                                       "<*> per Continuare");
    par.ParValues = ParValuesBefore;
    par.FreeValues = FreeValuesBefore;
  }
  if (minimum_.end == MinimiseEnd::kIndistinguishable) storeFreeValues(session_, par.FreeValues.span(1, N()));
  observer_.failed();
  return false;
}

FitProgress Fit::figures(int iteration, double sum, const Array<double>& X) {
  const int freedom = M() - N();
  FitProgress now{.seconds = static_cast<int>(Int(clock_.timer() - started_)),
                  .iteration = iteration,
                  .degreesOfFreedom = freedom,
                  .reducedChiSquare = {},
                  .confidence = {},
                  .X = X};
  guard(session_.ErrFlag, [&] { now.reducedChiSquare = checked::divide(sum, freedom); });
  if (freedom < 1) now.confidence = 0;
  const Evaluation above = fullUpperGamma(freedom / 2.0, sum / 2);
  if (above.fault == Fault::kNone) {
    now.confidence = 100 * above.value;
  } else {
    session_.ErrFlag = kTrue;
  }
  return now;
}

void Fit::progress(int iteration, double sum, const Array<double>& X) {
  observer_.progress(figures(iteration, sum, X));
}

// A statement that fails leaves its target: the slope that of the point before, the effective error that of y.
void Fit::findEffectiveErrors(Array<double>& effective) {
  const DataSet& data = session_.loaded.data;
  const auto x = data.Xpnt.span(1, M());
  if (x.empty()) return;
  const auto range = std::ranges::minmax(x);
  double h = 0;
  guard(session_.ErrFlag, [&] { h = checked::finite(std::abs(range.max - range.min) / kSlopeSteps); });
  const auto model = [&](double at) { return EvaluateFunction(session_, dialogs_, checked::finite(at)); };
  double slope = 0;
  for (int j = 1; j <= M(); ++j) {
    const double dy = data.ErrYpnt[j];
    effective[j] = dy;
    guard(session_.ErrFlag, [&] {
      slope = checked::divide(checked::finite(model(data.Xpnt[j] + h) - model(data.Xpnt[j] - h)), h) / 2;
    });
    guard(session_.ErrFlag, [&] {
      const double dx = data.ErrXpnt[j] * slope;
      effective[j] = std::sqrt(checked::finite(dy * dy + dx * dx));
    });
  }
}

}  // namespace

FitResult FitData(Session& session, Dialogs& dialogs, MainWindow& window, Clock& clock,
                  FitObserver& observer) {
  const ShutWindow shut(window, Form::kOutput);
  return Fit(session, dialogs, clock, observer).run();
}

}  // namespace vk
