#pragma once

#include <cmath>
#include <numbers>
#include <random>

namespace vk {

/// Random errors over a generator that the language standard fixes bit for bit; the library's own distributions differ
/// from one library to the next.
class Noise {
 public:
  explicit Noise(unsigned seed) : generator_(seed) {}

  /// A normal deviate of mean 0 and standard deviation 1, by Box and Muller.
  double operator()() {
    const double radius = std::sqrt(-2 * std::log(uniform()));
    return radius * std::cos(2 * std::numbers::pi * uniform());
  }

  /// The counts of a source that gives `mean` of them on average: the gaps between them are exponential.
  int counts(double mean) {
    int count = 0;
    for (double time = -std::log(uniform()); time < mean; time -= std::log(uniform())) ++count;
    return count;
  }

 private:
  double uniform() { return (static_cast<double>(generator_()) + 1) / 4294967297.0; }

  std::mt19937 generator_;
};

}  // namespace vk
