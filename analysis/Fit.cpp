#include "analysis/Fit.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/DataResiduals.h"
#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "numeric/SpecialFunctions.h"

namespace vk {
namespace {

constexpr double kSlopeSteps = 100;  // of the range of x

// In the order of the ends of a minimisation.
constexpr std::array kFailureReasons{
    "", "un parametro variabile NON cambia i residui", "il residuo dell'ultimo punto NON e` calcolabile",
    "gli effetti dei parametri variabili NON sono distinguibili", "errori non finiti"};

/// Residuals that the observer hears of every so many points, few enough not to look dead.
class WatchedResiduals : public Residuals {
 public:
  WatchedResiduals(Residuals& residuals, FitObserver& observer)
      : residuals_(residuals), observer_(observer) {}
  bool ComputeResiduals(std::span<const double> X, std::span<const double> last, std::span<double> F,
                        double& sum) override {
    points_ += F.size();
    if (points_ >= kPointsAtOnce) {
      points_ = 0;
      observer_.working();
    }
    return residuals_.ComputeResiduals(X, last, F, sum);
  }

 private:
  static constexpr std::size_t kPointsAtOnce = 50'000;

  Residuals& residuals_;
  FitObserver& observer_;
  std::size_t points_ = 0;
};

// ---- Effective errors -------------------------------------------------------------------------------------

/// The slopes of the model at all points. One that cannot be computed is that of the point before.
std::vector<double> slopes(const FitProblem& problem, const ParameterSet& par, double h) {
  const auto x = problem.data.Xpnt.span(1, problem.data.NumPnt);
  std::vector<double> sides;
  for (const double at : x) {
    if (!std::isfinite(at + h)) continue;
    sides.push_back(at + h);
    if (std::isfinite(at - h)) sides.push_back(at - h);
  }
  problem.model.at(sides, par.ParValues, sides, problem.listener);
  std::vector<double> result;
  double slope = 0;
  std::size_t next = 0;
  for (const double at : x) {
    const bool right = std::isfinite(at + h);
    const bool both = right && std::isfinite(at - h);
    if (both) {
      guard([&] { slope = checked::divide(checked::finite(sides[next] - sides[next + 1]), h) / 2; });
    }
    next += both ? 2 : right ? 1 : 0;
    result.push_back(slope);
  }
  return result;
}

/// Errors of y and of x, by the slope, as one; where that fails the error of y.
Array<double> effectiveErrors(const FitProblem& problem, const ParameterSet& par) {
  const DataSet& data = problem.data;
  const auto range = std::ranges::minmax(data.Xpnt.span(1, data.NumPnt));
  double h = 0;
  guard([&] { h = checked::finite(std::abs(range.max - range.min) / kSlopeSteps); });
  const std::vector<double> slope = slopes(problem, par, h);
  Array<double> effective(data.NumPnt);
  for (int j = 1; j <= data.NumPnt; ++j) {
    const double dy = data.ErrYpnt[j];
    effective[j] = dy;
    guard([&] {
      const double dx = data.ErrXpnt[j] * slope[static_cast<std::size_t>(j - 1)];
      effective[j] = std::sqrt(checked::finite(dy * dy + dx * dx));
    });
  }
  return effective;
}

// ---- The fit ----------------------------------------------------------------------------------------------

class Fit : public MinimiseObserver {
 public:
  Fit(const FitProblem& problem, ParameterSet start, FitObserver& observer)
      : problem_(problem),
        par_(std::move(start)),
        observer_(observer),
        F_(problem.data.NumPnt),
        W_(problem.data.NumPnt, par_.FreeCount) {}

  FitResult run();
  void progress(int iteration, double sum, const Array<double>& X) override;

 private:
  int M() const { return problem_.data.NumPnt; }
  int N() const { return par_.FreeCount; }
  bool minimise(const Array<double>& errors, bool last);
  void complete(bool last);
  void giveUp(const ParameterSet& before);
  FitProgress figures(int iteration, double sum, const Array<double>& X) const;

  FitProblem problem_;
  ParameterSet par_;
  FitObserver& observer_;
  Array<double> F_;
  MinimiseWork W_;
  MinimiseResult minimum_;
  FitResult result_;
};

FitResult Fit::run() {
  result_.M = M();
  result_.N = N();
  result_.degrees_of_freedom = M() - N();
  const bool twice = problem_.data.kXpntErr != kFalse;
  if (minimise(problem_.data.ErrYpnt, !twice) && twice) {
    result_.ErrEff = M() > 0 ? effectiveErrors(problem_, par_) : problem_.data.ErrEff;
    minimise(result_.ErrEff, true);
  }
  result_.par = std::move(par_);
  return std::move(result_);
}

bool Fit::minimise(const Array<double>& errors, bool last) {
  const ParameterSet before = par_;
  observer_.started({M(), N(), par_.FreeValues});
  DataResiduals ofData(problem_, par_, errors.span(1, M()));
  WatchedResiduals residuals(ofData, observer_);
  minimum_ = Minimise(residuals, M(), N(), F_, par_.FreeValues, par_.FreeSteps, MinimiseOptions(), W_, *this);
  result_.failure = {minimum_.end, minimum_.parameter};
  result_.reason = kFailureReasons.at(static_cast<std::size_t>(minimum_.end));
  result_.chi_square =
      minimum_.end == MinimiseEnd::kResidualsFailed ? std::nullopt : std::optional(minimum_.FS);
  result_.iterations = minimum_.iterations;
  result_.evaluations += minimum_.evaluations;
  result_.passes = minimum_.passes;
  const bool completed = minimum_.end == MinimiseEnd::kCompleted;
  completed ? complete(last) : giveUp(before);
  return completed;
}

void Fit::complete(bool last) {
  storeFreeValues(par_, par_.FreeValues.span(1, N()));
  for (int i = 1; i <= N(); ++i) par_.ParDeltas[par_.FreeIndex[i]] = minimum_.errors[i];

  const FitProgress atEnd = figures(minimum_.iterations, minimum_.FS, par_.FreeValues);
  const bool unreliable = minimum_.TooCoarse != 0;
  result_.status = unreliable ? FitStatus::kUnreliable : FitStatus::kCompleted;
  if (atEnd.degreesOfFreedom > 0) {
    result_.reduced_chi_square = atEnd.reducedChiSquare;
    result_.confidence_percent = atEnd.confidence;
  }
  result_.correlation = minimum_.correlation;
  observer_.finished({atEnd, minimum_.errors, minimum_.correlation, last, unreliable});
}

void Fit::giveUp(const ParameterSet& before) {
  result_.status = FitStatus::kFailed;
  result_.reduced_chi_square.reset();
  result_.confidence_percent.reset();
  result_.correlation = {};
  if (minimum_.end == MinimiseEnd::kNoEffect) {
    par_.ParValues = before.ParValues;
    par_.FreeValues = before.FreeValues;
  }
  if (minimum_.end == MinimiseEnd::kIndistinguishable) storeFreeValues(par_, par_.FreeValues.span(1, N()));
  observer_.failed(result_.failure);
}

FitProgress Fit::figures(int iteration, double sum, const Array<double>& X) const {
  const int freedom = M() - N();
  FitProgress now{
      .iteration = iteration, .degreesOfFreedom = freedom, .reducedChiSquare = {}, .confidence = {}, .X = X};
  guard([&] { now.reducedChiSquare = checked::divide(sum, freedom); });
  if (freedom < 1) now.confidence = 0;
  const Evaluation above = fullUpperGamma(freedom / 2.0, sum / 2);
  if (above.fault == Fault::kNone) now.confidence = 100 * above.value;
  return now;
}

void Fit::progress(int iteration, double sum, const Array<double>& X) {
  observer_.progress(figures(iteration, sum, X));
}

}  // namespace

FitResult FitData(const FitProblem& problem, ParameterSet par, FitObserver& observer) {
  return Fit(problem, std::move(par), observer).run();
}

}  // namespace vk
