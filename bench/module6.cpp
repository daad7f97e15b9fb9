// The propagation of errors by simulation, and the transformation of a large data set.
#include <benchmark/benchmark.h>

#include <cmath>
#include <stdexcept>

#include "analysis/MonteCarlo.h"
#include "analysis/Transformation.h"
#include "commands/ExhaustedBox.h"
#include "commands/FunctionChoice.h"
#include "commands/RandomSource.h"
#include "expr/Catalogue.h"
#include "platform/system/SystemRandom.h"
#include "tests/doubles/CountingDialogs.h"

namespace vk {
namespace {

/// a*exp(-b)*sin(c) with normal errors of a and b and a maximum error of c.
Session decayingWave() {
  Session session;
  BuildCatalogue(session.loaded.catalogue);
  session.loaded.catalogue.file.entries.push_back({"a,b,c", "a*EXP(-b)*SIN(c)", "wave"});
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

}  // namespace
}  // namespace vk
