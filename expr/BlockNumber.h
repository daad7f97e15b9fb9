#pragma once

#include <algorithm>
#include <array>

#include "numeric/Elementary.h"

namespace vk {

/// Points that are computed together; few enough for their columns to stay in the nearest cache.
inline constexpr std::size_t kBlockPoints = 256;

/// So many points fill each register. Kernels are quickest with full ones, so the last point of a block is repeated
/// until they are.
inline constexpr std::size_t kRegisterPoints = 8;

inline std::size_t inFullRegisters(std::size_t points) {
  return (points + kRegisterPoints - 1) / kRegisterPoints * kRegisterPoints;
}

/// The column itself where its points fill registers, otherwise its copy in `room`, which they fill.
inline const double* filledUp(const double* column, std::size_t points, double* room) {
  if (points % kRegisterPoints == 0) return column;
  std::copy_n(column, points, room);
  std::fill(room + points, room + inFullRegisters(points), column[points - 1]);
  return room;
}

/// Puts the values at the points of a block into `result`.
inline void spread(const simd::Values& values, double* result, std::size_t count) {
  if (values.column) {
    std::copy_n(values.column, count, result);
  } else {
    std::fill_n(result, count, values.value);
  }
}

/// Room for the arguments and results of a formula at the points of a block, one column after the other: for 20, all of
/// which the longest pair of the catalogue takes where each point has parameters of its own.
struct BlockStorage {
  explicit BlockStorage(std::size_t points) : count(inFullRegisters(points)) {}

  double* column() { return &columns[kBlockPoints * used++]; }

  std::size_t count;
  bool finite = true;  ///< so far all results were
  std::size_t used = 0;
  std::array<double, 20 * kBlockPoints> columns;
};

/// A number of a formula that is computed at all points of a block together, or one of its constants. So a formula
/// written for any kind of number stands for one point and for a block, with the same bits.
class BlockNumber {
 public:
  BlockNumber(double value) : values_{nullptr, value} {}  // NOLINT: formulas mix it with constants
  BlockNumber(BlockStorage& room, simd::Values values) : room_(&room), values_(values) {}

  const simd::Values& values() const { return values_; }

  friend BlockNumber operator+(BlockNumber x, BlockNumber y) { return combined(simd::kPlus, x, y); }
  friend BlockNumber operator-(BlockNumber x, BlockNumber y) { return combined(simd::kMinus, x, y); }
  friend BlockNumber operator*(BlockNumber x, BlockNumber y) { return combined(simd::kTimes, x, y); }
  friend BlockNumber operator/(BlockNumber x, BlockNumber y) { return combined(simd::kDivide, x, y); }
  BlockNumber operator-() const { return mapped(simd::kNegate, *this); }
  friend BlockNumber fabs(BlockNumber x) { return mapped(simd::kAbs, x); }
  friend BlockNumber sqrt(BlockNumber x) { return mapped(simd::kSqr, x); }
  friend BlockNumber exp(BlockNumber x) { return mapped(simd::kExp, x); }
  friend BlockNumber log(BlockNumber x) { return mapped(simd::kLog, x); }
  friend BlockNumber sin(BlockNumber x) { return mapped(simd::kSin, x); }

 private:
  static BlockNumber combined(simd::Operator op, const BlockNumber& x, const BlockNumber& y) {
    BlockStorage& room = *(x.room_ ? x.room_ : y.room_);
    double* const out = room.column();
    room.finite &= elementary::kernels().operators[op](x.values_, y.values_, out, room.count);
    return {room, {out}};
  }
  static BlockNumber mapped(simd::Function function, const BlockNumber& x) {
    BlockStorage& room = *x.room_;
    double* const out = room.column();
    room.finite &= elementary::kernels().functions[function](x.values_, out, room.count);
    return {room, {out}};
  }

  BlockStorage* room_ = nullptr;  ///< none for a constant
  simd::Values values_;
};

}  // namespace vk
