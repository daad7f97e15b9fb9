#pragma once

#include <string>
#include <vector>

#include "analysis/LinearisedErrors.h"
#include "base/Text.h"
#include "commands/ExhaustedBox.h"
#include "commands/FitCommand.h"
#include "commands/FunctionChoice.h"
#include "commands/ParameterCommands.h"
#include "doubles/Choices.h"
#include "doubles/Doubles.h"
#include "doubles/ScriptedDialogs.h"
#include "expr/Catalogue.h"

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

/// A session with a formula as its model, as if loaded from a function file, and data.
struct FitCase {
  Session session;
  ScriptedDialogs dialogs;
  FitLog log;

  /// `names` is the comma list of the parameters.
  FitCase(const std::string& formula, const std::string& names) {
    BuildCatalogue(session.loaded.catalogue);
    session.loaded.catalogue.file.entries.push_back({names, formula, formula});
    loadFunction(session, 1);
    choose(session, kBuiltInInner + 1, 1);
  }

  void data(const std::vector<double>& x, const std::vector<double>& y, const std::vector<double>& dy,
            const std::vector<double>& dx = {}) {
    DataSet& set = session.loaded.data;
    set.allocate(static_cast<int>(x.size()), toFlag(!dx.empty()));
    for (int j = 1; j <= set.NumPnt; ++j) {
      const auto from = static_cast<std::size_t>(j) - 1;
      set.Xpnt[j] = x[from];
      set.Ypnt[j] = y[from];
      set.ErrYpnt[j] = dy[from];
      if (!dx.empty()) set.ErrXpnt[j] = dx[from];
    }
    session.loaded.DataDefined = kTrue;
  }

  /// Starting values of all parameters; `constant` names those that stay, separated by commas.
  void start(const std::vector<double>& values, const std::string& constant = "") {
    ParameterSet& par = session.analysis.par;
    for (int i = 1; i <= par.ParCount; ++i) {
      par.ParValues[i] = values[static_cast<std::size_t>(i) - 1];
      par.ParDeltas[i] = position("," + constant + ",", "," + par.name(i) + ",") > 0 ? 0 : 1;
    }
    classifyParameters(session);
  }

  FitResult fit() { return fit(log); }
  FitResult fit(FitObserver& observer) { return FitData(session, dialogs, observer); }
  std::optional<Array<double>> linearised(double chiSquare) {
    ExhaustedBox listener(session, dialogs);
    Model& model = session.analysis.model;
    return linearisedErrors({session.loaded.data, model, listener}, session.analysis.par, chiSquare);
  }
  double value(int i) const { return session.analysis.par.ParValues[i]; }
  double error(int i) const { return session.analysis.par.ParDeltas[i]; }
};

}  // namespace vk
