#include "bench/validation/SimulatedSets.h"

#include "analysis/NormalDeviate.h"
#include "analysis/Simulation.h"
#include "bench/validation/NumberCell.h"

namespace vk {
namespace {

constexpr double kScatterOfStart = 0.05;

}  // namespace

double SimulatedModel::at(double x) const {
  Model model = modelOf(formula, names);
  ParameterSet par = parametersOf(splitItems(names));
  for (std::size_t i = 0; i < truth.size(); ++i) par.ParValues[static_cast<int>(i) + 1] = truth[i];
  NoListener listener;
  return model.at(x, par.ParValues, listener).value;
}

std::string SimulatedModel::description() const {
  std::string text = "y = `" + formula + "` with ";
  const std::vector<std::string> items = splitItems(names);
  for (std::size_t i = 0; i < items.size(); ++i)
    text += (i == 0 ? "" : ", ") + items[i] + " = " + formatted("%g", truth[i]);
  text += "; " + std::to_string(settings.SimPoints) + " points, x from " + formatted("%g", settings.SimXMin) +
          " to " + formatted("%g", settings.SimXMax) + ", dy = " + formatted("%g", settings.SimErrY);
  if (hasXErrors()) text += ", dx = " + formatted("%g", settings.SimErrX);
  return text + ".";
}

SimulationSettings measured(double from, double to, int points, double dy, double dx) {
  return {from, to, Int16(points), dy, Int16(1), dx, Int16(1)};
}

const std::vector<SimulatedModel>& simulatedModels() {
  static const std::vector<SimulatedModel> models{
      {"Line", "b*x+c", "b,c", {2, 1}, measured(0, 10, 20, 0.5)},
      {"Exponential with background", "A*EXP(-k*x)+B", "A,k,B", {100, 0.5, 10}, measured(0, 10, 40, 2)},
      {"Gaussian on a line",
       "A*EXP(-((x-m)/s)^2/2)+b*x+c",
       "A,m,s,b,c",
       {100, 5, 0.8, 2, 20},
       measured(0, 10, 50, 3)},
      {"Damped oscillation",
       "A*EXP(-k*x)*SIN(w*x+p)",
       "A,k,w,p",
       {10, 0.2, 2, 0.5},
       measured(0, 10, 60, 0.3)},
      {"Line with dx", "b*x+c", "b,c", {2, 1}, measured(0, 10, 20, 0.4, 0.2)},
      {"Resonance with dx",
       "A/SQR((1-(x/f)^2)^2+(x/(f*Q))^2)",
       "A,f,Q",
       {2, 5, 6},
       measured(3, 7, 40, 0.2, 0.03)},
  };
  return models;
}

FitCase simulatedSet(const SimulatedModel& model, int seed) {
  SeededSource seeded(seed);
  FitCase set(model.formula, model.names);
  set.start(model.truth);
  set.points = simulate(model.settings, set.model, set.par, seeded.source, set.listener).data;
  std::vector<double> start;
  for (const double value : model.truth)
    start.push_back(value * (1 + kScatterOfStart * (2 * static_cast<double>(seeded.source.next()) - 1)));
  set.start(start);
  return set;
}

std::vector<double> normalDeviates(int seed, std::size_t count) {
  SeededSource seeded(seed);
  GaussianState state;
  std::vector<double> deviates;
  while (deviates.size() < count) deviates.push_back(normalDeviate(seeded.source, state));
  return deviates;
}

}  // namespace vk
