// The propagation of errors by simulation, and the transformation of a large data set, beside the same written in C++.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <random>
#include <stdexcept>

#include "analysis/MonteCarlo.h"
#include "analysis/Transformation.h"
#include "commands/ExhaustedBox.h"
#include "commands/FunctionChoice.h"
#include "commands/RandomSource.h"
#include "expr/Catalogue.h"
#include "platform/system/SystemRandom.h"
#include "tests/doubles/Choices.h"
#include "tests/doubles/CountingDialogs.h"

namespace vk {
namespace {

/// a*exp(-b)*sin(c) with normal errors of a and b and a maximum error of c.
Session decayingWave() {
  Session session;
  BuildCatalogue(session.loaded.catalogue);
  session.loaded.catalogue.file.entries.push_back(compiledEntry("a,b,c", "a*EXP(-b)*SIN(c)", "wave"));
  loadFunction(session, 1);
  session.analysis.fun.InnerIndex = kBuiltInInner + 1;
  session.analysis.fun.OuterIndex = 1;
  TakeFunction(session, 0, 0);
  const double values[] = {0, 5, 0.7, 1.2};
  const double errors[] = {0, 0.1, 0.02, -0.05};
  for (int i = 0; i <= 3; ++i) {
    session.analysis.par.ParValues[i] = values[i];
    session.analysis.par.ParDeltas[i] = errors[i];
  }
  return session;
}

void TenThousandSamples(benchmark::State& state) {
  Session session = decayingWave();
  const ParameterSet& par = session.analysis.par;
  CountingDialogs dialogs;
  SystemRandom random;
  ExhaustedBox listener(dialogs);
  Model& model = session.analysis.model;
  RandomSource source(random);
  const AnalyticErrors analytic = analyticErrors(model, par, listener);
  SampleStatistics last;
  for (auto _ : state) {
    MonteCarlo simulation(model, par, source, listener);
    simulation.setUpBins(analytic);
    simulation.run([&](const SampleStatistics& samples) { last = samples; });
  }
  if (last.count != MonteCarlo::kSamples || std::abs(last.mean - analytic.F0) > 0.01 ||
      std::abs(last.spread / analytic.ErrorSigma - 1) > 0.05) {
    throw std::runtime_error("the samples are not those of the function");
  }
}
BENCHMARK(TenThousandSamples)->Unit(benchmark::kMillisecond);

void TenThousandSamples_Plain(benchmark::State& state) {
  std::mt19937_64 source(1);
  std::normal_distribution<double> normal;
  std::uniform_real_distribution<double> uniform(-1, 1);
  double mean = 0;
  for (auto _ : state) {
    std::array<int, MonteCarlo::kBins> hits{};
    double sum = 0;
    double squares = 0;
    for (int i = 0; i < MonteCarlo::kSamples; ++i) {
      const double a = 5 + 0.1 * normal(source);
      const double b = 0.7 + 0.02 * normal(source);
      const double c = 1.2 + 0.05 * uniform(source);
      const double value = a * std::exp(-b) * std::sin(c);
      const double bin = (value - 2.1) / 0.43 * MonteCarlo::kBins;
      if (bin >= 0 && bin < MonteCarlo::kBins) ++hits[static_cast<std::size_t>(bin)];
      sum += value;
      squares += value * value;
    }
    mean = sum / MonteCarlo::kSamples;
    benchmark::DoNotOptimize(hits);
    benchmark::DoNotOptimize(squares);
  }
  if (std::abs(mean - 2.31) > 0.01) throw std::runtime_error("the samples are not those of the function");
}
BENCHMARK(TenThousandSamples_Plain)->Unit(benchmark::kMillisecond);

constexpr int kPoints = 32767;

DataSet largeData() {
  DataSet data;
  data.allocate(kPoints, kFalse);
  for (int i = 1; i <= kPoints; ++i) {
    data.Xpnt[i] = 10.0 * i / kPoints;
    data.Ypnt[i] = 1 + std::cos(data.Xpnt[i]);
    data.ErrYpnt[i] = 0.1;
  }
  return data;
}

void TransformTwoColumns(benchmark::State& state) {
  const DataSet data = largeData();
  const TransformFormulas formulas{"log x", "y", {"LOG(x)", "y^2+SQR(x)*EXP(-y)", "dy"}};
  NoListener listener;
  TransformResult result;
  for (auto _ : state) {
    state.PauseTiming();
    DataSet copy = data;
    state.ResumeTiming();
    result = transform(std::move(copy), formulas, listener);
  }
  const double x = data.Xpnt[kPoints];
  const double y = data.Ypnt[kPoints];
  if (result.data.Xpnt[kPoints] != std::log(x) ||
      std::abs(result.data.Ypnt[kPoints] - (y * y + std::sqrt(x) * std::exp(-y))) > 1E-12) {
    throw std::runtime_error("the columns are not those of the formulas");
  }
}
BENCHMARK(TransformTwoColumns)->Unit(benchmark::kMillisecond);

void TransformTwoColumns_Plain(benchmark::State& state) {
  const DataSet data = largeData();
  const auto x = data.Xpnt.span(1, kPoints);
  const auto y = data.Ypnt.span(1, kPoints);
  std::vector<double> newX(x.size());
  std::vector<double> newY(x.size());
  for (auto _ : state) {
    for (std::size_t i = 0; i < x.size(); ++i) newX[i] = std::log(x[i]);
    for (std::size_t i = 0; i < x.size(); ++i) newY[i] = y[i] * y[i] + std::sqrt(x[i]) * std::exp(-y[i]);
    benchmark::DoNotOptimize(newX.data());
    benchmark::DoNotOptimize(newY.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(TransformTwoColumns_Plain)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vk
