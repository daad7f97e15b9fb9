#include "doubles/Doubles.h"

#include <gtest/gtest.h>

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

void RecordingPrinter::setOrientation(Int16 wanted) {
  orientation = wanted;
  calls.emplace_back(wanted == kLandscape ? "landscape" : "portrait");
}

void RecordingPrinter::printText(const std::string& printed, const std::string& fontFace, double size) {
  calls.emplace_back("text");
  text = printed;
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
