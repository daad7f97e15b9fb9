#pragma once

#include <cstdint>

#include "base/RuntimeError.h"

namespace vk {

/// A 16-bit signed integer that refuses what does not fit.
///
/// Counters, indices and flags of the session have this width. Arithmetic happens in `int`; the check is at
/// the store, where a value outside -32768..32767 raises run-time error 6.
class Int16 {
 public:
  constexpr Int16() = default;
  constexpr Int16(int value) : value_(narrow(value)) {}  // NOLINT: implicit, so that each store is checked
  constexpr operator int() const { return value_; }

  constexpr Int16& operator+=(int step) { return *this = Int16(value_ + step); }
  constexpr Int16& operator-=(int step) { return *this = Int16(value_ - step); }
  constexpr Int16& operator++() { return *this += 1; }
  constexpr Int16& operator--() { return *this -= 1; }

 private:
  static constexpr std::int16_t narrow(int value) {
    if (value < INT16_MIN || value > INT16_MAX) throw RuntimeError(kOverflow);
    return static_cast<std::int16_t>(value);
  }

  std::int16_t value_ = 0;
};

/// A truth value of the session: exactly -1 for true and 0 for false, combined with bitwise And and Not.
using Flag = Int16;
inline constexpr int kTrue = -1;
inline constexpr int kFalse = 0;

/// The flag of a C++ truth value.
constexpr Flag toFlag(bool value) {
  return value ? kTrue : kFalse;
}

}  // namespace vk
