#include "doubles/Doubles.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/RuntimeError.h"

namespace vk {

ScriptedRandom::~ScriptedRandom() {
  if (!numbers_.empty()) ADD_FAILURE() << numbers_.size() << " random numbers left over";
}

float ScriptedRandom::next() {
  if (numbers_.empty()) {
    ADD_FAILURE() << "unexpected random number";
    return 0.5F;
  }
  const float number = numbers_.front();
  numbers_.pop_front();
  return number;
}

void ScriptedRandom::giveBack(std::span<const float> numbers) {
  numbers_.insert(numbers_.begin(), numbers.begin(), numbers.end());
}

void RecordingMainWindow::shut(Form holder) {
  holders.push_back(holder);
  enabled = false;
  calls.emplace_back("shut");
}

void RecordingMainWindow::release(Form holder) {
  const auto held = std::find(holders.begin(), holders.end(), holder);
  ASSERT_NE(held, holders.end());
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
