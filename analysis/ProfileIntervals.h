#pragma once

#include <array>
#include <optional>
#include <vector>

#include "analysis/RefinedFit.h"

/// Intervals by the profile of chi-square, which unlike errors may lie askew about the value.
namespace vk {

/// Where the chi-square, made least over the other parameters, has grown by the square of a number of errors.
struct ProfileInterval {
  std::optional<double> low, high;  ///< missing on a side where it does not grow so far
};

/// The probabilities of the intervals, in per cent, and the numbers of errors that belong to them.
struct ProfileLevel {
  double percent;
  double errors;
};
inline constexpr std::array kProfileLevels{ProfileLevel{68.27, 1}, ProfileLevel{95, 1.959964}};

using ProfileIntervals = std::array<ProfileInterval, kProfileLevels.size()>;

/// The intervals of each free parameter, in their order, about a minimum with covariances. The errors of the points
/// count as they are given.
std::vector<ProfileIntervals> profileIntervals(const FitProblem& problem, const RefinedFit& minimum);

}  // namespace vk
