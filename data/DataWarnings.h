#pragma once

#include <string>
#include <vector>

#include "data/DataSet.h"

namespace vk {

/// What is odd about the points of a good data file, each in one line of ASCII: titles that seem to be points, errors of y
/// that are 0 or below, and columns that seem to have changed places. Points are named by their number, from 1.
std::vector<std::string> dataWarnings(const DataSet& data);

}  // namespace vk
