// Compilation of formulas, and their evaluation beside the same formula written in C++.
//
// Counters: "ns/point" is the time of one point, "ratio" how many times the plain loop it took.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "expr/Compiler.h"
#include "expr/Model.h"

namespace vk {
namespace {

constexpr int kPoints = 32767;

/// A model function as text and as plain C++.
struct Formulas {
  const char* parameters;
  const char* text;
  std::vector<double> values;
  void (*plain)(const std::vector<double>& p, const std::vector<double>& x, std::vector<double>& y);
};

const Formulas kOscillation{
    "A,B,C,D",
    "A*EXP(-B*x)*SIN(C*x+D)",
    {2.5, 0.3, 4.2, 0.7},
    [](const std::vector<double>& p, const std::vector<double>& x, std::vector<double>& y) {
      for (std::size_t i = 0; i < x.size(); ++i)
        y[i] = p[0] * std::exp(-p[1] * x[i]) * std::sin(p[2] * x[i] + p[3]);
    }};

const Formulas kParabola{
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

/// The formula as a loaded inner function or a pair of the catalogue.
Model modelOf(const Formulas& formula, int inner) {
  Compilation compiled = compile(std::string("y@x@") + formula.parameters + "@ @" + formula.text);
  if (!compiled.ok) throw std::logic_error("the formula does not compile");
  return {inner, 1, std::move(compiled.code)};
}

Array<double> parametersOf(const Formulas& formula) {
  Array<double> table(static_cast<int>(formula.values.size()));
  std::ranges::copy(formula.values, table.span(1, table.upper()).begin());
  return table;
}

/// Times a way of evaluation, checks its values against the plain loop, and tells the ratio of the times.
template <class Evaluate>
void compare(benchmark::State& state, const Formulas& formula, int inner, Evaluate evaluate) {
  Model model = modelOf(formula, inner);
  const Array<double> parameters = parametersOf(formula);
  const std::vector<double> x = points();
  std::vector<double> expected(x.size());
  std::vector<double> y(x.size());
  const auto plain = [&] {
    formula.plain(formula.values, x, expected);
    benchmark::DoNotOptimize(expected.data());
    benchmark::ClobberMemory();
  };
  const double plainTime = bestTime(plain);
  const double ownTime = bestTime([&] { evaluate(model, parameters, x, y); });
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (std::fabs(y[i] - expected[i]) > 1E-12) return state.SkipWithError("a wrong value");
  }
  for (auto _ : state) evaluate(model, parameters, x, y);
  state.SetItemsProcessed(state.iterations() * kPoints);
  state.counters["ns/point"] = 1E9 * ownTime / kPoints;
  state.counters["plain_ns/point"] = 1E9 * plainTime / kPoints;
  state.counters["ratio"] = ownTime / plainTime;
}

void inOneCall(Model& model, const Array<double>& parameters, const std::vector<double>& x,
               std::vector<double>& y) {
  NoListener nobody;
  model.at(x, parameters, y, nobody);
}

void onePoint(Model& model, const Array<double>& parameters, const std::vector<double>& x,
              std::vector<double>& y) {
  NoListener nobody;
  for (std::size_t i = 0; i < x.size(); ++i) y[i] = model.at(x[i], parameters, nobody).value;
}

constexpr int kLoaded = 6;
constexpr int kCatalogueParabola = 3;

void Oscillation_Block(benchmark::State& state) {
  compare(state, kOscillation, kLoaded, inOneCall);
}
void Oscillation_Single(benchmark::State& state) {
  compare(state, kOscillation, kLoaded, onePoint);
}
void Parabola_Block(benchmark::State& state) {
  compare(state, kParabola, kLoaded, inOneCall);
}
void Parabola_Single(benchmark::State& state) {
  compare(state, kParabola, kLoaded, onePoint);
}
void CatalogueParabola_Block(benchmark::State& state) {
  compare(state, kParabola, kCatalogueParabola, inOneCall);
}
void CatalogueParabola_Single(benchmark::State& state) {
  compare(state, kParabola, kCatalogueParabola, onePoint);
}

void Compile(benchmark::State& state) {
  for (auto _ : state) {
    Compilation compiled = compile("y@x@A,B,C,D@ @A*EXP(-B*x)*SIN(C*x+D)");
    if (!compiled.ok) return state.SkipWithError("the formula does not compile");
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
