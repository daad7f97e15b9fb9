#pragma once

#include "base/Array.h"
#include "base/Int16.h"

namespace vk {

/// `before`, or the number at the index where the array has it, as a library computes it: with optimisation, which
/// the tests themselves are built without.
int numberOr(const Array<Int16>& numbers, int index, Int16 before);

}  // namespace vk
