#include "commands/ColumnTable.h"

#include <algorithm>

#include "base/Text.h"
#include "commands/FitScreenTexts.h"

namespace vk {
namespace {

constexpr int kTableTitleRow = 2, kTableTitleRule = 3, kHeadsRow = 4, kHeadsRule = 5;
constexpr int kCellMargin = 2;
constexpr int kBesideCells = 3;  // a rule, and a blank on each side

int widthOf(const TableColumn& column) {
  int width = 0;
  for (const std::string& cell : column) width = std::max(width, length(cell));
  return width;
}

}  // namespace

std::string numberHead(const std::string& head) {
  const int left = (length(kNumberMask) - length(head)) / 2;
  return repeat(left, ' ') + head + repeat(length(kNumberMask) - left - length(head), ' ');
}

CharGrid columnTable(const std::string& title, const std::vector<TableColumn>& columns) {
  const int rows = kHeadsRule + static_cast<int>(columns.front().size());
  int width = 1;
  for (const TableColumn& column : columns) width += widthOf(column) + kBesideCells;
  width = std::max(width, length(title) + kBesideCells + 1);
  CharGrid grid(rows, width);
  grid.frame({1, 1, kTableTitleRule, width, kFrameStyle});
  grid.print(kTableTitleRow, (width + 2 - length(title)) / 2, Cp437Text(title));
  int begin = 1;
  for (const TableColumn& column : columns) {
    const int end = &column == &columns.back() ? width : begin + widthOf(column) + kBesideCells;
    grid.frame({kTableTitleRule, begin, kHeadsRule, end, kFrameStyle});
    grid.frame({kTableTitleRule, begin, rows, end, kFrameStyle});
    int row = kHeadsRow;
    for (const std::string& cell : column) {
      grid.print(row, begin + kCellMargin, Cp437Text(cell));
      row += row == kHeadsRow ? kHeadsRule + 1 - kHeadsRow : 1;
    }
    begin = end;
  }
  return grid;
}

}  // namespace vk
