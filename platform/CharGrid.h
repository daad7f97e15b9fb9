#pragma once

#include <string>
#include <vector>

#include "base/EncodedText.h"

namespace vk {

/// A frame drawn through the centres of the cells of its four corners; rows and columns from 1.
struct GridFrame {
  int row1 = 0, col1 = 0, row2 = 0, col2 = 0;
  int style = 3;  ///< 2 raised, 3 engraved
  bool operator==(const GridFrame&) const = default;
};

/// A screen of character cells as a value: reports and the fit screen draw into it, the window paints it,
/// the terminal prints it, tests compare it as text. Characters are code page 437; rows and columns count
/// from 1. What falls outside the grid is dropped.
class CharGrid {
 public:
  CharGrid() = default;
  CharGrid(int rows, int cols);

  int rows() const { return rows_; }
  int cols() const { return cols_; }

  /// Replaces the cells that the text covers, whatever stood there, frames included.
  void print(int row, int col, const Cp437Text& text);

  /// Draws a frame over what is there; characters other than blanks stay readable.
  void frame(const GridFrame& frame);

  /// Draws another grid over this one, its first cell on this one.
  void place(const CharGrid& other, int row, int col);

  /// The character of a cell, a blank where none was printed.
  char at(int row, int col) const;
  /// True when a character was printed there after the last frame through that cell.
  bool covers(int row, int col) const;
  const std::vector<GridFrame>& frames() const { return frames_; }

  /// The characters of a row without the frames, exactly cols() long.
  std::string rowText(int row) const;

  /// The whole screen in UTF-8, one LF-ended line per row without trailing blanks; frames are drawn with
  /// box-drawing lines, joined where they meet.
  std::string toUtf8() const;

 private:
  struct Cell {
    char character = ' ';
    bool printed = false;
  };
  bool contains(int row, int col) const { return row >= 1 && row <= rows_ && col >= 1 && col <= cols_; }
  Cell& cell(int row, int col);
  const Cell& cell(int row, int col) const;
  void uncover(int row, int col);
  std::vector<unsigned> frameLines() const;

  int rows_ = 0;
  int cols_ = 0;
  std::vector<Cell> cells_;
  std::vector<GridFrame> frames_;
};

}  // namespace vk
