#pragma once

#include <string>
#include <vector>

#include "data/DataFiles.h"

namespace vk {

/// What is odd about a good data file, each in one line of ASCII: titles that seem to be points, another number of
/// points than the count line tells, errors of y that are 0 or below, and columns that seem to have changed places.
/// Points are named by their number, from 1.
std::vector<std::string> dataWarnings(const DataReading& reading);

}  // namespace vk
