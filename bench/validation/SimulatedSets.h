#pragma once

#include <algorithm>
#include <atomic>
#include <cmath>
#include <string>
#include <thread>
#include <vector>

#include "analysis/SimulationSettings.h"
#include "commands/RandomSource.h"
#include "platform/system/SystemRandom.h"
#include "tests/analysis/FitFixture.h"

namespace vk {

/// The generator of the program at the beginning of a sequence.
struct SeededSource {
  explicit SeededSource(int seed) { random.seed(static_cast<float>(seed)); }

  SystemRandom random;
  RandomSource source{random};
};

/// What is simulated: a model with its true values, where it is measured and how well.
struct SimulatedModel {
  bool hasXErrors() const { return settings.SimErrX > 0; }
  std::size_t parameters() const { return truth.size(); }
  /// The place that lies this part of the range of x, from 0 to 1, from its beginning.
  double place(double part) const { return std::lerp(settings.SimXMin, settings.SimXMax, part); }
  /// The true curve.
  double at(double x) const;
  /// A sentence that tells all of it.
  std::string description() const;

  std::string name;
  std::string formula, names;
  std::vector<double> truth;
  SimulationSettings settings;
};

/// Points equally spaced, errors of y and x in their units.
SimulationSettings measured(double from, double to, int points, double dy, double dx = 0);

/// The models of the validation.
const std::vector<SimulatedModel>& simulatedModels();

/// A set of data of the model, with starting values that are up to 5 per cent off. The same seed makes the same set.
FitCase simulatedSet(const SimulatedModel& model, int seed);

/// Normal deviates of their own for each seed.
std::vector<double> normalDeviates(int seed, std::size_t count);

/// Does `work(i)` for each i from 0 to `count` - 1, in any order and several at the same time.
template <class Work>
void doAll(int count, Work work) {
  std::atomic<int> next{0};
  std::vector<std::jthread> threads;
  for (unsigned t = 0; t < std::max(1U, std::thread::hardware_concurrency()); ++t) {
    threads.emplace_back([&] {
      for (int i = next++; i < count; i = next++) work(i);
    });
  }
}

}  // namespace vk
