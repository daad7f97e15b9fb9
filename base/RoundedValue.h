#pragma once

#include <optional>
#include <string>

namespace vk {

/// A value and its error as people write them.
struct RoundedValue {
  std::string
      plain;  ///< "473 +- 12"; "(4.73 +- 0.12)E4" where digits before the point are unknown, or far from it
  std::string compact;  ///< "4.73(12)E2": the error in units of the last digit; no exponent where it is 0
};

/// Rounds the error to two significant digits and the value to the same place: 9.96 is 10, and a value below that place
/// is 0. Without an error, with one that is 0 or not finite, and with one that no digit of a double reaches (below the
/// 17th) the value has the fewest digits that bring it back. A value that is not finite stands alone as well.
RoundedValue roundedValue(double value, std::optional<double> error);

}  // namespace vk
