#pragma once

#include "data/DataSet.h"

namespace vk {

/// True when both have the same points.
inline bool haveSamePoints(const DataSet& one, const DataSet& other) {
  if (one.NumPnt != other.NumPnt) return false;
  for (int i = 1; i <= one.NumPnt; ++i) {
    if (one.Xpnt[i] != other.Xpnt[i] || one.Ypnt[i] != other.Ypnt[i] || one.ErrXpnt[i] != other.ErrXpnt[i] ||
        one.ErrYpnt[i] != other.ErrYpnt[i])
      return false;
  }
  return true;
}

/// True when both have the same points and titles.
inline bool areEqual(const DataSet& one, const DataSet& other) {
  return haveSamePoints(one, other) && one.TitleX == other.TitleX && one.TitleY == other.TitleY;
}

}  // namespace vk
