#include "analysis/Simulation.h"

#include <cmath>
#include <utility>

#include "analysis/NormalDeviate.h"
#include "base/CheckedMath.h"
#include "base/Rounding.h"

namespace vk {
namespace {

constexpr double kErrorOfZero = 0.001;
constexpr double kScatter = 0.4;  // from the lowest to the highest factor

/// Makes the settings reasonable and tells what was not.
std::vector<Correction> correct(SimulationSettings& sim, int freeCount) {
  std::vector<Correction> corrections;
  if (sim.SimPoints <= freeCount) {
    sim.SimPoints = freeCount + 1;
    corrections.push_back(Correction::kPoints);
  }
  if (sim.SimXMin > sim.SimXMax) {
    std::swap(sim.SimXMin, sim.SimXMax);
    corrections.push_back(Correction::kExchanged);
  }
  if (sim.SimXMin == sim.SimXMax) {
    sim.SimXMax = sim.SimXMin + 1;
    corrections.push_back(Correction::kMoved);
  }
  if (sim.SimErrY == 0) {
    sim.SimErrY = 1;
    corrections.push_back(Correction::kErrorOfY);
  }
  return corrections;
}

/// The error of a value: as entered, or that percentage of the value.
// QUIRK: a percentage keeps the sign of the value, so that negative values have negative errors.
double errorOf(double value, double entered, int absolute) {
  return absolute != 0 ? entered : checked::finite(value * entered) / 100;
}

std::vector<double> equallySpaced(const SimulationSettings& sim) {
  const double step =
      checked::divide(checked::finite(sim.SimXMax - sim.SimXMin), static_cast<double>(sim.SimPoints - 1));
  std::vector<double> x;
  for (int i = 0; i < sim.SimPoints; ++i) x.push_back(checked::finite(i * step + sim.SimXMin));
  return x;
}

/// Points at x and y with their errors, scattered by them.
DataSet scattered(const SimulationSettings& sim, const std::vector<double>& x, const std::vector<double>& y,
                  UniformSource& random) {
  DataSet data;
  data.TitleX = "x";
  data.TitleY = "y";
  data.allocate(sim.SimPoints, toFlag(sim.SimErrX > 0));
  GaussianState deviates;
  const auto scatter = [&](double value, double error) {
    return checked::finite(normalDeviate(random, deviates) * error + value);
  };
  for (int i = 1; i <= sim.SimPoints; ++i) {
    const auto k = static_cast<std::size_t>(i - 1);
    const double dy = errorOf(y[k], sim.SimErrY, sim.SimErrYAbs);
    data.ErrYpnt[i] = dy == 0 ? kErrorOfZero : dy;
    data.Ypnt[i] = scatter(y[k], data.ErrYpnt[i]);
    data.Xpnt[i] = x[k];
    if (data.kXpntErr == 0) continue;
    data.ErrXpnt[i] = errorOf(x[k], sim.SimErrX, sim.SimErrXAbs);
    data.Xpnt[i] = scatter(x[k], data.ErrXpnt[i]);
  }
  return data;
}

}  // namespace

SimulationSettings firstSettings() {
  return {.SimXMin = 0,
          .SimXMax = 10,
          .SimPoints = 11,
          .SimErrY = 1,
          .SimErrYAbs = 0,
          .SimErrX = 0,
          .SimErrXAbs = 0};
}

SimulationSettings settingsOf(std::span<const double, 7> numbers) {
  SimulationSettings sim;
  sim.SimXMin = numbers[0];
  sim.SimXMax = numbers[1];
  sim.SimPoints = toInt16(std::abs(numbers[2]));
  sim.SimErrY = std::abs(numbers[3]);
  sim.SimErrYAbs = toInt16(numbers[4]);
  sim.SimErrX = std::abs(numbers[5]);
  sim.SimErrXAbs = toInt16(numbers[6]);
  return sim;
}

SimulatedData simulate(const SimulationSettings& settings, Model& model, const ParameterSet& par,
                       UniformSource& random, EvaluationListener& listener) {
  SimulatedData result;
  result.settings = settings;
  result.corrections = correct(result.settings, par.FreeCount);
  const std::vector<double> x = equallySpaced(result.settings);
  std::vector<double> y(x.size());
  model.at(x, par.ParValues, y, listener);
  result.data = scattered(result.settings, x, y, random);
  return result;
}

void scatterStart(ParameterSet& par, UniformSource& random) {
  for (int i = 1; i <= par.FreeCount; ++i) {
    par.FreeValues[i] =
        checked::finite(par.FreeValues[i] * ((static_cast<double>(random.next()) - 0.5) * kScatter + 1));
  }
}

}  // namespace vk
