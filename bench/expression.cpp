// Compilation of formulas, and their evaluation beside the same formula written in C++.
//
// Counters: "ns/point" is the time of one point, "ratio" how many times the plain loop it took.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "expr/CmpMod.h"
#include "tests/doubles/CountingDialogs.h"

namespace vk {
namespace {

constexpr int kPoints = 32767;

/// A model function as text and as plain C++.
struct Formula {
  const char* parameters;
  const char* text;
  std::vector<double> values;
  void (*plain)(const std::vector<double>& p, const std::vector<double>& x, std::vector<double>& y);
};

const Formula kOscillation{
    "A,B,C,D",
    "A*EXP(-B*x)*SIN(C*x+D)",
    {2.5, 0.3, 4.2, 0.7},
    [](const std::vector<double>& p, const std::vector<double>& x, std::vector<double>& y) {
      for (std::size_t i = 0; i < x.size(); ++i)
        y[i] = p[0] * std::exp(-p[1] * x[i]) * std::sin(p[2] * x[i] + p[3]);
    }};

const Formula kParabola{
    "a,b,c",
    "a*x*x+b*x+c",
    {1.5, -2.5, 0.5},
    [](const std::vector<double>& p, const std::vector<double>& x, std::vector<double>& y) {
      for (std::size_t i = 0; i < x.size(); ++i) y[i] = p[0] * x[i] * x[i] + p[1] * x[i] + p[2];
    }};

std::vector<double> points() {
  std::vector<double> x(kPoints);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = 10.0 * static_cast<double>(i) / kPoints;
  return x;
}

/// Seconds of one run, the best of many.
template <class Run>
double bestTime(Run run) {
  double best = 1E9;
  for (int i = 0; i < 50; ++i) {
    const auto start = std::chrono::steady_clock::now();
    run();
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best;
}

/// A session whose current model is the formula, as a loaded inner function or a pair of the catalogue.
Session sessionOf(const Formula& formula, int inner) {
  Session session;
  session.analysis.fun.InnerIndex = inner;
  session.analysis.fun.OuterIndex = 1;
  session.analysis.par.ParCount = static_cast<int>(formula.values.size());
  session.analysis.par.ParValues.dim(session.analysis.par.ParCount);
  for (int i = 1; i <= session.analysis.par.ParCount; ++i) {
    session.analysis.par.ParValues[i] = formula.values[static_cast<std::size_t>(i - 1)];
  }
  Int16 flag;
  CompileExpression(session, std::string("y@x@") + formula.parameters + "@ @" + formula.text,
                    session.analysis.model, flag);
  if (flag != 0) throw std::logic_error("the formula does not compile");
  return session;
}

/// Times a way of evaluation, checks its values against the plain loop, and tells the ratio of the times.
template <class Evaluate>
void compare(benchmark::State& state, const Formula& formula, int inner, Evaluate evaluate) {
  Session session = sessionOf(formula, inner);
  CountingDialogs dialogs;
  const std::vector<double> x = points();
  std::vector<double> expected(x.size());
  std::vector<double> y(x.size());
  const auto plain = [&] {
    formula.plain(formula.values, x, expected);
    benchmark::DoNotOptimize(expected.data());
    benchmark::ClobberMemory();
  };
  const double plainTime = bestTime(plain);
  const double ownTime = bestTime([&] { evaluate(session, dialogs, x, y); });
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (std::fabs(y[i] - expected[i]) > 1E-12) return state.SkipWithError("a wrong value");
  }
  for (auto _ : state) evaluate(session, dialogs, x, y);
  state.SetItemsProcessed(state.iterations() * kPoints);
  state.counters["ns/point"] = 1E9 * ownTime / kPoints;
  state.counters["plain_ns/point"] = 1E9 * plainTime / kPoints;
  state.counters["ratio"] = ownTime / plainTime;
}

void inBlocks(Session& session, Dialogs& dialogs, const std::vector<double>& x, std::vector<double>& y) {
  evaluateFunctionAt(session, dialogs, x, y);
}

void onePoint(Session& session, Dialogs& dialogs, const std::vector<double>& x, std::vector<double>& y) {
  for (std::size_t i = 0; i < x.size(); ++i) y[i] = EvaluateFunction(session, dialogs, x[i]);
}

constexpr int kLoaded = 6;
constexpr int kCatalogueParabola = 3;

void Oscillation_Block(benchmark::State& state) {
  compare(state, kOscillation, kLoaded, inBlocks);
}
void Oscillation_Single(benchmark::State& state) {
  compare(state, kOscillation, kLoaded, onePoint);
}
void Parabola_Block(benchmark::State& state) {
  compare(state, kParabola, kLoaded, inBlocks);
}
void Parabola_Single(benchmark::State& state) {
  compare(state, kParabola, kLoaded, onePoint);
}
void CatalogueParabola_Block(benchmark::State& state) {
  compare(state, kParabola, kCatalogueParabola, inBlocks);
}
void CatalogueParabola_Single(benchmark::State& state) {
  compare(state, kParabola, kCatalogueParabola, onePoint);
}

void Compile(benchmark::State& state) {
  Session session;
  CompiledExpression compiled;
  for (auto _ : state) {
    Int16 flag;
    CompileExpression(session, "y@x@A,B,C,D@ @A*EXP(-B*x)*SIN(C*x+D)", compiled, flag);
    if (flag != 0) return state.SkipWithError("the formula does not compile");
    benchmark::DoNotOptimize(compiled);
  }
}

BENCHMARK(Compile);
BENCHMARK(Oscillation_Block);
BENCHMARK(Oscillation_Single);
BENCHMARK(Parabola_Block);
BENCHMARK(Parabola_Single);
BENCHMARK(CatalogueParabola_Block);
BENCHMARK(CatalogueParabola_Single);

}  // namespace
}  // namespace vk
