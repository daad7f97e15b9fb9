#pragma once

#include <algorithm>
#include <span>

#include "base/RuntimeError.h"
#include "expr/BlockNumber.h"
#include "numeric/Fault.h"

namespace vk {

/// Fewer points than these are computed one by one in less time.
inline constexpr std::size_t kFewestTogether = 3;

/// Computes result[i] at all points in blocks. `together(begin, count)` computes a block and stores it, or gives
/// false and stores nothing; then `single(i)` computes its points one by one. Gives the fault of the last point;
/// `faults`, when not empty, gets the fault of each.
template <class Together, class Single>
Fault inBlocks(std::span<double> result, std::span<Fault> faults, Together together, Single single) {
  Fault last = Fault::kNone;
  for (std::size_t begin = 0; begin < result.size(); begin += kBlockPoints) {
    const std::size_t count = std::min(kBlockPoints, result.size() - begin);
    if (count >= kFewestTogether && together(begin, count)) {
      last = Fault::kNone;
      if (!faults.empty()) std::fill_n(&faults[begin], count, last);
      continue;
    }
    for (std::size_t i = begin; i < begin + count; ++i) {
      const Evaluation evaluation = single(i);
      result[i] = evaluation.value;
      last = evaluation.fault;
      if (!faults.empty()) faults[i] = last;
    }
  }
  return last;
}

/// Run-time error 9 for fewer points than results.
inline void requirePoints(std::size_t points, std::size_t results) {
  if (points < results) throw RuntimeError(kIndexOutOfRange);
}

}  // namespace vk
