#include "platform/CharGrid.h"

#include <algorithm>
#include <array>

namespace vk {
namespace {

// Arms of a line that leave the centre of a cell.
enum Arm : unsigned { kUp = 1, kRight = 2, kDown = 4, kLeft = 8 };

// The box-drawing sign of each combination of arms.
constexpr std::array<const char*, 16> kLines{" ", "╵", "╶", "└", "╷", "│", "┌", "├",
                                             "╴", "┘", "─", "┴", "┐", "┤", "┬", "┼"};

}  // namespace

CharGrid::CharGrid(int rows, int cols)
    : rows_(std::max(rows, 0)),
      cols_(std::max(cols, 0)),
      cells_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_)) {}

CharGrid::Cell& CharGrid::cell(int row, int col) {
  return cells_[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(cols_) +
                static_cast<std::size_t>(col - 1)];
}

const CharGrid::Cell& CharGrid::cell(int row, int col) const {
  return const_cast<CharGrid*>(this)->cell(row, col);
}

void CharGrid::print(int row, int col, const Cp437Text& text) {
  for (const char c : text.bytes()) {
    if (contains(row, col)) cell(row, col) = {c, true};
    ++col;
  }
}

void CharGrid::uncover(int row, int col) {
  if (contains(row, col) && cell(row, col).character == ' ') cell(row, col).printed = false;
}

void CharGrid::frame(const GridFrame& frame) {
  const auto [top, bottom] = std::minmax(frame.row1, frame.row2);
  const auto [left, right] = std::minmax(frame.col1, frame.col2);
  frames_.push_back({top, left, bottom, right, frame.style});
  for (int row = top; row <= bottom; ++row) {
    uncover(row, left);
    uncover(row, right);
  }
  for (int col = left; col <= right; ++col) {
    uncover(top, col);
    uncover(bottom, col);
  }
}

void CharGrid::place(const CharGrid& other, int row, int col) {
  const int down = row - 1, right = col - 1;
  for (const GridFrame& f : other.frames())
    frame({f.row1 + down, f.col1 + right, f.row2 + down, f.col2 + right, f.style});
  for (int i = 1; i <= other.rows(); ++i) {
    for (int j = 1; j <= other.cols(); ++j) {
      if (other.covers(i, j) && contains(i + down, j + right)) cell(i + down, j + right) = other.cell(i, j);
    }
  }
}

char CharGrid::at(int row, int col) const {
  return contains(row, col) ? cell(row, col).character : ' ';
}

bool CharGrid::covers(int row, int col) const {
  return contains(row, col) && cell(row, col).printed;
}

std::string CharGrid::rowText(int row) const {
  std::string text;
  for (int col = 1; col <= cols_; ++col) text += at(row, col);
  return text;
}

std::vector<unsigned> CharGrid::frameLines() const {
  std::vector<unsigned> arms(cells_.size(), 0);
  const auto add = [&](int row, int col, unsigned arm) {
    if (contains(row, col)) arms[static_cast<std::size_t>((row - 1) * cols_ + col - 1)] |= arm;
  };
  for (const GridFrame& f : frames_) {
    for (int col = f.col1; col < f.col2; ++col) {
      for (int row : {f.row1, f.row2}) {
        add(row, col, kRight);
        add(row, col + 1, kLeft);
      }
    }
    for (int row = f.row1; row < f.row2; ++row) {
      for (int col : {f.col1, f.col2}) {
        add(row, col, kDown);
        add(row + 1, col, kUp);
      }
    }
  }
  return arms;
}

std::string CharGrid::toUtf8() const {
  const std::vector<unsigned> arms = frameLines();
  std::string result;
  for (int row = 1; row <= rows_; ++row) {
    std::string line;
    for (int col = 1; col <= cols_; ++col) {
      const unsigned lines = arms[static_cast<std::size_t>((row - 1) * cols_ + col - 1)];
      line += covers(row, col) || lines == 0 ? vk::toUtf8(Cp437Text(std::string(1, at(row, col))))
                                             : kLines[lines];
    }
    result += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  return result;
}

}  // namespace vk
