#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/RuntimeError.h"

namespace vk {

/// An array with indices 0..upper(); an index outside is run-time error 9.
///
/// Most users begin at index 1 and leave element 0 unused.
template <class T>
class Array {
 public:
  Array() = default;
  /// Elements 0..upper, all value-initialised.
  explicit Array(int upper) { dim(upper); }

  /// Allocates anew as 0..upper; nothing of the old content stays. A negative upper is run-time error 9.
  void dim(int upper) { items_.assign(length(upper), T{}); }
  /// Changes the upper index and keeps what fits; new elements are value-initialised. Fails as `dim` does.
  void redim(int upper) { items_.resize(length(upper)); }
  /// Gives the memory back; upper() is -1 afterwards.
  void erase() { items_.clear(); }

  int upper() const { return static_cast<int>(items_.size()) - 1; }

  T& operator[](int index) { return items_[checked(index)]; }
  const T& operator[](int index) const { return items_[checked(index)]; }

  /// Elements first..last without further checks; the range itself is checked. Empty when last < first.
  std::span<T> span(int first, int last) {
    return last < first ? std::span<T>() : std::span<T>(items_).subspan(checked(first), extent(first, last));
  }
  std::span<const T> span(int first, int last) const {
    return last < first ? std::span<const T>()
                        : std::span<const T>(items_).subspan(checked(first), extent(first, last));
  }

  bool operator==(const Array&) const = default;

 private:
  static std::size_t length(int upper) {
    if (upper < 0) throw RuntimeError(kIndexOutOfRange);
    return static_cast<std::size_t>(upper) + 1;
  }
  std::size_t checked(int index) const {
    if (index < 0 || index > upper()) throw RuntimeError(kIndexOutOfRange);
    return static_cast<std::size_t>(index);
  }
  std::size_t extent(int first, int last) const { return checked(last) - checked(first) + 1; }

  std::vector<T> items_;
};

}  // namespace vk
