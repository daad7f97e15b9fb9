#pragma once

#include <span>
#include <vector>

#include "analysis/ParameterSet.h"
#include "analysis/SimulationSettings.h"
#include "data/DataSet.h"
#include "expr/Model.h"
#include "numeric/NormalDeviates.h"

/// Synthetic data from a model function: equally spaced x, y with Gaussian noise, and optional noise on x.
namespace vk {

/// The settings of the first simulation with a function.
SimulationSettings firstSettings();

/// The settings of seven numbers in the order of their fields: counts are rounded, sizes lose their sign. One that
/// does not fit its type is run-time error 6.
SimulationSettings settingsOf(std::span<const double, 7> numbers);

/// What was not reasonable in the settings, and has been made so.
enum class Correction {
  kPoints,     ///< not more points than free parameters: now one more
  kExchanged,  ///< limits in the wrong order: exchanged
  kMoved,      ///< equal limits: the upper one moved by 1
  kErrorOfY,   ///< no error of y: now 1
};

/// Simulated data, with the settings that they were made by.
struct SimulatedData {
  SimulationSettings settings;
  std::vector<Correction> corrections;  ///< in their order
  DataSet data;
};

/// Makes the settings reasonable and the data by them. The generator goes on from where it stands. A number beyond all
/// others is run-time error 6.
SimulatedData simulate(const SimulationSettings& settings, Model& model, const ParameterSet& par,
                       UniformSource& random, EvaluationListener& listener);

/// Scatters the starting values of the free parameters by up to 20 per cent.
void scatterStart(ParameterSet& par, UniformSource& random);

}  // namespace vk
