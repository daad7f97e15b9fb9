// Compilation of formulas, and their evaluation beside the same formula written in C++.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "expr/Compiler.h"
#include "expr/Model.h"
#include "numeric/Elementary.h"

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

/// The values of one run must be those of the plain loop.
template <class Evaluate>
void evaluated(benchmark::State& state, const Formulas& formula, int inner, Evaluate evaluate) {
  Model model = modelOf(formula, inner);
  const Array<double> parameters = parametersOf(formula);
  const std::vector<double> x = points();
  std::vector<double> expected(x.size());
  std::vector<double> y(x.size());
  for (auto _ : state) evaluate(model, parameters, x, y);
  formula.plain(formula.values, x, expected);
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (std::fabs(y[i] - expected[i]) > 1E-12) return state.SkipWithError("a wrong value");
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
  state.SetLabel(std::string(elementary::instructionSet().name));
}

void compiled(benchmark::State& state, const Formulas& formula) {
  const std::vector<double> x = points();
  std::vector<double> y(x.size());
  for (auto _ : state) {
    formula.plain(formula.values, x, y);
    benchmark::DoNotOptimize(y.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
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
  evaluated(state, kOscillation, kLoaded, inOneCall);
}
void Oscillation_Single(benchmark::State& state) {
  evaluated(state, kOscillation, kLoaded, onePoint);
}
void Oscillation_Plain(benchmark::State& state) {
  compiled(state, kOscillation);
}
void Parabola_Block(benchmark::State& state) {
  evaluated(state, kParabola, kLoaded, inOneCall);
}
void Parabola_Single(benchmark::State& state) {
  evaluated(state, kParabola, kLoaded, onePoint);
}
void Parabola_Plain(benchmark::State& state) {
  compiled(state, kParabola);
}
void CatalogueParabola_Block(benchmark::State& state) {
  evaluated(state, kParabola, kCatalogueParabola, inOneCall);
}
void CatalogueParabola_Single(benchmark::State& state) {
  evaluated(state, kParabola, kCatalogueParabola, onePoint);
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
BENCHMARK(Oscillation_Plain);
BENCHMARK(Parabola_Block);
BENCHMARK(Parabola_Single);
BENCHMARK(Parabola_Plain);
BENCHMARK(CatalogueParabola_Block);
BENCHMARK(CatalogueParabola_Single);

}  // namespace
}  // namespace vk
