#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/foreign/ForeignFile.h"

namespace vk {

/// A line of a file as it stands in the table of a window.
struct TableLine {
  enum class Kind { kAbove, kPoint, kLeftOut };
  int number = 0;                  ///< in the file, from 1
  std::vector<std::string> cells;  ///< UTF-8; the whole line as one where it is no row of the table
  Kind kind = Kind::kAbove;        ///< above the points, comments included; a point; left out
  std::string reason;              ///< why it was left out
};

/// The first `most` lines of a text that are not blank, and as many of those further down that were left out, split as
/// the text was read. None of a file that is no text.
std::vector<TableLine> tableLines(std::string_view bytes, const ForeignReading& reading, std::size_t most);

}  // namespace vk
