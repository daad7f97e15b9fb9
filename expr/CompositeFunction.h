#pragma once

#include <cmath>
#include <limits>
#include <span>

#include "base/Array.h"
#include "expr/BlockNumber.h"
#include "expr/PlainOperations.h"

/// The composite functions f[g(x)] of the catalogue by plain arithmetic: written once, for one point and for the
/// points of a block. Each is one statement; it failed where its result is not finite.
namespace vk {

inline constexpr double kFailed = std::numeric_limits<double>::quiet_NaN();

/// Inner functions up to this one have a formula here; the others run as compiled code.
inline constexpr int kLastPlainInner = 5;

inline bool isPlainInner(int index) {
  return index >= 1 && index <= kLastPlainInner;
}

/// A table entry, or `kFailed` where the table has none: the statement that reads it fails.
inline double entryOf(const Array<double>& table, int index) {
  return index >= 0 && index <= table.upper() ? table[index] : kFailed;
}

/// The variables at the points of a block where each has parameters of its own.
struct ParameterColumns {
  BlockStorage& room;
  std::span<const double* const> columns;  ///< x, then parameter 1 to the last
  std::size_t points;

  int upper() const { return static_cast<int>(columns.size()) - 1; }
};

inline BlockNumber entryOf(const ParameterColumns& table, int index) {
  if (index < 0 || index > table.upper()) return {table.room, {nullptr, kFailed}};
  const double* const column = table.columns[static_cast<std::size_t>(index)];
  return {table.room, {filledUp(column, table.points, table.room.column())}};
}

/// A step whose infinity the next one would hide; a block is told of each step.
inline double mustBeFinite(double value) {
  return isFinite(value) ? value : kFailed;
}
inline BlockNumber mustBeFinite(BlockNumber value) {
  return value;
}

/// Inner function 1..5 at a point or at those of a block.
template <class Parameters, class Number>
Number innerValue(int inner, const Parameters& parameters, Number x) {
  const auto p1 = entryOf(parameters, 1);
  const auto p2 = entryOf(parameters, 2);
  const auto p3 = entryOf(parameters, 3);
  switch (inner) {
    case 1:
      return p1;
    case 2:
      return x * p1 + p2;
    case 3:
      return x * x * p1 + x * p2 + p3;
    case 4: {
      const Number distance = x - p1;
      return (distance * distance + p2) / p3;
    }
    default: {
      const Number square = x * x;
      const Number difference = square - p2 * p2;
      return p1 / mustBeFinite(difference * difference + square * (p3 * p3));
    }
  }
}

/// The outer function at a point, or at those of a block.
template <class Parameters, class Number>
Number outerValue(int outer, const Parameters& parameters, Number x, Number u) {
  using elementary::exp;
  using elementary::log;
  using elementary::sin;
  using std::fabs;
  using std::sqrt;
  const int k = parameters.upper();
  const auto last = entryOf(parameters, k);
  switch (outer) {
    case 2:
      return u * u;
    case 3:
      return 1 / u;
    // QUIRK: roots and logarithms of |u|, where the same function as a text has none of |u|.
    case 4:
      return sqrt(fabs(u));
    case 5:
      return (x + last) / u;
    case 6:
      return last * log(fabs(u));
    case 7:
      return last * exp(u);
    case 8:
      return last * sin(u);
    case 9:
      return entryOf(parameters, k - 1) * exp(mustBeFinite(-last * x)) * sin(u);
    default:
      return u;
  }
}

}  // namespace vk
