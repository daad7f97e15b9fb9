#pragma once

#include <string>

#include "analysis/MonteCarloResult.h"

namespace vk {

/// Merges the thin bins at the tails of the histogram and gives it as a data file of a probability density with
/// errors, CR LF line ends.
std::string monteCarloFileText(MonteCarloResult& histogram, const std::string& functionText);

}  // namespace vk
