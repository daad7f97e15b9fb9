#pragma once

#include <vector>

#include "base/Array.h"

namespace vk {

using Values = std::vector<double>;

/// Five points near a line, and their errors.
inline const Values kFive{1, 2, 3, 4, 5};
inline const Values kLineY{2.1, 3.9, 6.2, 7.8, 10.1};
inline const Values kTenths(5, 0.1);

/// The values as an array 1..N.
inline Array<double> fromOne(const Values& values) {
  Array<double> result(static_cast<int>(values.size()));
  for (int i = 1; i <= result.upper(); ++i) result[i] = values[static_cast<std::size_t>(i) - 1];
  return result;
}

}  // namespace vk
