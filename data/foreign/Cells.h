#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// A line with so many numbers may be a row of a table.
inline constexpr std::size_t kLeastNumbers = 2;

/// How the lines of a table are written.
struct Dialect {
  char separator =
      ' ';  ///< of cells: tab, ";", "|", "," or a blank, which stands for blanks and tabs in any number
  char decimal = '.';   ///< sign before the decimals: "." or ","
  bool paired = false;  ///< the comma is both: each two of its cells are one number

  friend bool operator==(const Dialect&, const Dialect&) = default;
};

/// The cells of a line without quotes and without the blanks at their ends; empty cells at its end are left out. The
/// views point into the line.
void splitCells(std::string_view line, const Dialect& dialect, std::vector<std::string_view>& cells);

/// A cell as a text of one line, with quotes that were written twice once.
std::string cellText(std::string_view cell);

/// The number in a cell: as in data files, but with the decimal sign of the dialect, and groups of three digits may be
/// set apart by the other sign, an apostrophe, or a blank where neither blanks nor commas separate cells. Nothing
/// for any other cell.
std::optional<double> cellNumber(std::string_view cell, const Dialect& dialect);

}  // namespace vk
