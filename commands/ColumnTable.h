#pragma once

#include <string>
#include <vector>

#include "platform/CharGrid.h"

namespace vk {

/// The cells of a column from its head down, code page 437. The longest one gives the width.
using TableColumn = std::vector<std::string>;

/// The head of a column of numbers, in its middle.
std::string numberHead(const std::string& head);

/// A framed table: a title, the heads of the columns, which all have one length, and their cells.
CharGrid columnTable(const std::string& title, const std::vector<TableColumn>& columns);

}  // namespace vk
