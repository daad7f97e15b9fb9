#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/foreign/Cells.h"
#include "data/foreign/Lines.h"

namespace vk {

/// What stands above the points, in UTF-8.
struct ForeignHeader {
  int lines = 0;                   ///< that are no comments, and a comment that holds the names
  std::vector<std::string> names;  ///< of all columns, units included; empty where nothing names them
  std::vector<std::string> axes;   ///< the two titles of a file that has one in each line, else empty
};

/// Reads the lines above the points of a table with so many columns. Names stand in the last line that splits into as
/// many cells, behind it perhaps their units, or in a comment; two lines above a count, or two of single cells, are
/// titles. `counted`: the last line is the count of the points.
ForeignHeader readHeader(std::span<const ForeignLine> lines, const Dialect& dialect, std::size_t columns,
                         bool counted);

}  // namespace vk
