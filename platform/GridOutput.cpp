#include "platform/GridOutput.h"

#include <algorithm>

#include "base/Rounding.h"
#include "base/Text.h"

namespace vk {

void GridOutput::OutShow(const OutputRequest& request) {
  request_ = request;
  detail_ = {};
  textMode_ = !trim(request.text.bytes()).empty();
  grid_ = CharGrid(request.rows, request.cols);
  CharLocate(1, 1);
  ++opened_;
  open_ = true;
}

void GridOutput::CharLocate(int row, int col) {
  row_ = row;
  col_ = col;
}

void GridOutput::print(const Cp437Text& text) {
  grid_.print(row_, col_, text);
  col_ += length(text.bytes());
}

void GridOutput::CharFrame(int row1, int col1, int row2, int col2, int style, const Cp437Text& title) {
  grid_.frame({row1, col1, row2, col2, style});
  if (title.bytes().empty()) return;
  const double column = (col1 + col2) / 2.0 - length(title.bytes()) / 2.0;
  grid_.print(std::min(row1, row2) + 1, toInt16(column), title);
}

}  // namespace vk
