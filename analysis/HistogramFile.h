#pragma once

#include <optional>
#include <string>

#include "analysis/MonteCarloResult.h"

namespace vk {

/// Merges the thin bins at the tails of the histogram and gives it as a data file of a probability density with
/// errors, CR LF line ends; with 5 significant digits, unless others are wanted.
std::string monteCarloFileText(MonteCarloResult& histogram, const std::string& functionText,
                               std::optional<int> digits = std::nullopt);

}  // namespace vk
