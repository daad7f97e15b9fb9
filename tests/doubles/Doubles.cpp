#include "doubles/Doubles.h"

#include <algorithm>
#include <stdexcept>

#include "base/RuntimeError.h"

namespace vk {

void RecordingMainWindow::shut(Form holder) {
  holders.push_back(holder);
  enabled = false;
  calls.emplace_back("shut");
}

void RecordingMainWindow::release(Form holder) {
  const auto held = std::find(holders.begin(), holders.end(), holder);
  if (held == holders.end()) throw std::logic_error("a window that nobody has shut is released");
  holders.erase(held);
  enabled = holders.empty();
  calls.emplace_back("release");
}

void RecordingPrinter::setOrientation(Int16 wanted) {
  orientation = wanted;
  calls.emplace_back(wanted == kLandscape ? "landscape" : "portrait");
}

void RecordingPrinter::printText(const PlainText& printed, const std::string& fontFace, double size) {
  calls.emplace_back("text");
  text = printed.bytes();
  face = fontFace;
  points = size;
}

void RecordingPrinter::printGrid(const CharGrid& printed, const GridPlace& where) {
  calls.emplace_back("grid");
  grid = printed;
  place = where;
}

void RecordingPrinter::EndDoc() {
  calls.emplace_back("end");
  if (error != 0) throw RuntimeError(error);
}

}  // namespace vk
