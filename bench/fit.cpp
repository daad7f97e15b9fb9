// Whole fits, from starting values to errors, without the reading of a file.
#include <benchmark/benchmark.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "commands/FitCommand.h"
#include "commands/FunctionChoice.h"
#include "commands/ParameterCommands.h"
#include "expr/Catalogue.h"
#include "tests/doubles/Choices.h"
#include "tests/doubles/CountingDialogs.h"
#include "tests/doubles/EvaluateFunction.h"

namespace vk {
namespace {

class NoObserver : public FitObserver {
 public:
  void started(const FitStart&) override {}
  void progress(const FitProgress&) override {}
  void finished(const FitFinal&) override {}
  void failed(const FitFailure&) override {}
};

struct Problem {
  std::string formula;
  std::string names;
  std::vector<double> solution;
  int points;
};

const Problem kSmall{"A*EXP(-B*x)*SIN(C*x+D)+E", "A,B,C,D,E", {5, 0.3, 4, 0.7, 1}, 50};
const Problem kLarge{"A*EXP(-B*x)*SIN(C*x+D)", "A,B,C,D", {5, 0.3, 4, 0.7}, 32767};

Session sessionOf(const Problem& problem) {
  Session session;
  BuildCatalogue(session.loaded.catalogue);
  session.loaded.catalogue.file.entries.push_back(
      compiledEntry(problem.names, problem.formula, problem.formula));
  loadFunction(session, 1);
  session.analysis.fun.InnerIndex = kBuiltInInner + 1;
  session.analysis.fun.OuterIndex = 1;
  TakeFunction(session, 0, 0);

  DataSet& data = session.loaded.data;
  data.allocate(problem.points, kFalse);
  for (int i = 1; i <= session.analysis.par.ParCount; ++i) {
    session.analysis.par.ParValues[i] = problem.solution[static_cast<std::size_t>(i) - 1];
  }
  CountingDialogs dialogs;
  for (int j = 1; j <= problem.points; ++j) {
    data.Xpnt[j] = 10.0 * j / problem.points;
    data.Ypnt[j] = EvaluateFunction(session, dialogs, data.Xpnt[j]) + 0.05 * std::sin(1E4 * j);
    data.ErrYpnt[j] = 0.05;
  }
  return session;
}

void start(Session& session, const Problem& problem) {
  for (int i = 1; i <= session.analysis.par.ParCount; ++i) {
    session.analysis.par.ParValues[i] =
        problem.solution[static_cast<std::size_t>(i) - 1] * (1 + 0.04 * (i % 3 - 1));
    session.analysis.par.ParDeltas[i] = 1;
  }
  classifyParameters(session.analysis.par);
  markParametersSet(session);
}

void wholeFit(benchmark::State& state, const Problem& problem) {
  Session session = sessionOf(problem);
  CountingDialogs dialogs;
  ExhaustedBox listener(dialogs);
  NoObserver observer;
  FitResult result;
  for (auto _ : state) {
    start(session, problem);
    result = FitData(session, listener, observer);
  }
  for (int i = 1; i <= session.analysis.par.ParCount; ++i) {
    const double solution = problem.solution[static_cast<std::size_t>(i) - 1];
    if (std::abs(session.analysis.par.ParValues[i] - solution) > 0.05)
      throw std::runtime_error("the minimum was missed");
  }
  state.counters["evaluations"] = result.evaluations;
  state.counters["passes"] = result.passes;
}
BENCHMARK_CAPTURE(wholeFit, points50, kSmall)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(wholeFit, points32767, kLarge)->Unit(benchmark::kMillisecond);

void fitAgainstPoints(benchmark::State& state) {
  Problem problem = kLarge;
  problem.points = static_cast<int>(state.range(0));
  wholeFit(state, problem);
}
BENCHMARK(fitAgainstPoints)->RangeMultiplier(4)->Range(128, 32767)->Unit(benchmark::kMillisecond);

/// A sum of so many waves; its parameters are their heights.
Problem waves(int count) {
  Problem problem{"", "", std::vector<double>(static_cast<std::size_t>(count), 1.0), 1000};
  for (int k = 1; k <= count; ++k) {
    const std::string height = "p" + std::to_string(k);
    problem.formula += (k > 1 ? "+" : "") + height + "*SIN(" + std::to_string(k) + "*x)";
    problem.names += (k > 1 ? "," : "") + height;
  }
  return problem;
}

void fitAgainstParameters(benchmark::State& state) {
  wholeFit(state, waves(static_cast<int>(state.range(0))));
}
BENCHMARK(fitAgainstParameters)->Arg(1)->Arg(2)->Arg(5)->Arg(10)->Arg(20)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vk
