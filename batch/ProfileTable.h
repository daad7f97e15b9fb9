#pragma once

#include <string>
#include <vector>

#include "analysis/ProfileIntervals.h"
#include "batch/Json.h"

namespace vk {

/// The intervals of the free parameters as a terminal shows them, and as a list of objects. An end that is open shows
/// underscores, or is null.
std::string profileScreen(const ParameterSet& par, const std::vector<ProfileIntervals>& intervals);
Json profileReport(const ParameterSet& par, const std::vector<ProfileIntervals>& intervals);

}  // namespace vk
