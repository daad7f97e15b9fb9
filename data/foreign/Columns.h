#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/foreign/Cells.h"
#include "data/foreign/Lines.h"

namespace vk {

/// What the lines of a table look like.
struct TableShape {
  std::size_t cells = 0;  ///< in most of the lines with two numbers or more
  std::vector<std::size_t>
      numbered;  ///< the columns, from 0, that hold numbers in at least half of these lines
};

TableShape shapeOf(const std::vector<ForeignLine>& lines, const Dialect& dialect);

/// Which column, from 0, holds what.
struct Roles {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  std::size_t x = 0, y = 1;
  std::size_t dx = kNone, dy = kNone;  ///< kNone where there is none

  /// The columns that are read, in the order x, y, dx, dy.
  std::vector<std::size_t> columns() const;
};

/// The roles of the columns of numbers, by their count; of more than four, the first two are x and y.
Roles usualRoles(const TableShape& shape);

/// The roles of the columns of numbers, by their count, or those of the columns that are `wanted`: x, y[, dx][, dy],
/// each by its number, from 1, or its name. `names` are those of all columns, or none. Too few or too many columns, a
/// wanted one that is not there, and names that contradict the order are a `Refusal`.
Roles rolesOf(const TableShape& shape, const std::vector<std::string>& names,
              const std::vector<std::string>& wanted);

}  // namespace vk
