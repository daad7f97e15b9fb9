#pragma once

#include <cstddef>
#include <vector>

#include "base/RuntimeError.h"

namespace vk {

/// An array with two indices, each from 0 to its upper one; an index outside is run-time error 9.
///
/// As with `Array`, most users begin at (1, 1) and leave the elements with an index 0 unused.
template <class T>
class Array2 {
 public:
  Array2() = default;
  /// All elements value-initialised. A negative upper index is run-time error 9.
  Array2(int upper1, int upper2)
      : upper1_(checkedUpper(upper1)),
        upper2_(checkedUpper(upper2)),
        items_((static_cast<std::size_t>(upper1) + 1) * (static_cast<std::size_t>(upper2) + 1)) {}

  int upper1() const { return upper1_; }
  int upper2() const { return upper2_; }

  T& operator()(int i, int j) { return items_[checked(i, j)]; }
  const T& operator()(int i, int j) const { return items_[checked(i, j)]; }

 private:
  static int checkedUpper(int upper) {
    if (upper < 0) throw RuntimeError(kIndexOutOfRange);
    return upper;
  }
  std::size_t checked(int i, int j) const {
    if (i < 0 || i > upper1_ || j < 0 || j > upper2_) throw RuntimeError(kIndexOutOfRange);
    return static_cast<std::size_t>(j) * (static_cast<std::size_t>(upper1_) + 1) +
           static_cast<std::size_t>(i);
  }

  int upper1_ = -1;
  int upper2_ = -1;
  std::vector<T> items_;  ///< the first index runs fastest
};

}  // namespace vk
