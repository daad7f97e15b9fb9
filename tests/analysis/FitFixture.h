#pragma once

#include <string>
#include <vector>

#include "analysis/Fit.h"
#include "analysis/LinearisedErrors.h"
#include "expr/FormulaText.h"
#include "tests/analysis/FormulaModel.h"

namespace vk {

/// Keeps what a fit told, in order.
struct FitLog : FitObserver {
  struct Progress {
    int iteration, degreesOfFreedom;
    std::optional<double> reducedChiSquare, confidence;
  };
  std::vector<std::string> events;  ///< "start", "progress", "finish", "finish last", "fail"
  std::vector<Progress> progresses;
  bool unreliable = false;

  void started(const FitStart&) override { events.emplace_back("start"); }
  void progress(const FitProgress& p) override {
    events.emplace_back("progress");
    progresses.push_back({p.iteration, p.degreesOfFreedom, p.reducedChiSquare, p.confidence});
  }
  void finished(const FitFinal& final) override {
    events.emplace_back(final.last ? "finish last" : "finish");
    unreliable = final.unreliable;
  }
  void failed(const FitFailure&) override { events.emplace_back("fail"); }

  /// The events without the progress.
  std::vector<std::string> turns() const {
    std::vector<std::string> result;
    for (const std::string& event : events) {
      if (event != "progress") result.push_back(event);
    }
    return result;
  }
};

/// A formula as the model, and data.
struct FitCase {
  Model model;
  ParameterSet par;
  DataSet points;
  NoListener listener;
  FitLog log;
  bool complete = false;  ///< what the fit said last

  /// `names` is the comma list of the parameters.
  FitCase(const std::string& formula, const std::string& names)
      : model(modelOf(formula, names)), par(parametersOf(splitItems(names))) {}

  void data(const std::vector<double>& x, const std::vector<double>& y, const std::vector<double>& dy,
            const std::vector<double>& dx = {}) {
    points.allocate(static_cast<int>(x.size()), toFlag(!dx.empty()));
    for (int j = 1; j <= points.NumPnt; ++j) {
      const auto from = static_cast<std::size_t>(j) - 1;
      points.Xpnt[j] = x[from];
      points.Ypnt[j] = y[from];
      points.ErrYpnt[j] = dy[from];
      if (!dx.empty()) points.ErrXpnt[j] = dx[from];
    }
  }

  /// Starting values of all parameters; `constant` names those that stay, separated by commas.
  void start(const std::vector<double>& values, const std::string& constant = "") {
    for (int i = 1; i <= par.ParCount; ++i) {
      par.ParValues[i] = values[static_cast<std::size_t>(i) - 1];
      par.ParDeltas[i] = position("," + constant + ",", "," + par.name(i) + ",") > 0 ? 0 : 1;
    }
    classifyParameters(par);
  }

  FitProblem problem() { return {points, model, listener}; }
  /// Fits, and goes on from there.
  FitResult fit() { return fit(log); }
  FitResult fit(FitObserver& observer) {
    FitResult result = FitData(problem(), par, observer);
    par = result.par;
    if (result.ErrEff.upper() >= 0) points.ErrEff = result.ErrEff;
    complete = result.complete();
    return result;
  }
  /// The linearised errors, 1..N.
  std::optional<Array<double>> linearised(double chiSquare) {
    const auto covariance = linearisedCovariance(problem(), par, chiSquare);
    if (!covariance) return std::nullopt;
    Array<double> errors(covariance->size());
    for (int i = 1; i <= errors.upper(); ++i) errors[i] = covariance->deviation(i);
    return errors;
  }
  double value(int i) const { return par.ParValues[i]; }
  double error(int i) const { return par.ParDeltas[i]; }
};

}  // namespace vk
