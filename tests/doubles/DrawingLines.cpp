#include "doubles/DrawingLines.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/NumberText.h"
#include "base/TextLines.h"

namespace vk {
namespace {

/// The words of a line between blanks and commas.
std::vector<std::string> wordsOf(const std::string& line) {
  std::vector<std::string> words;
  std::string word;
  for (const char c : line + " ") {
    if (c != ' ' && c != ',') {
      word += c;
      continue;
    }
    if (!word.empty()) words.push_back(word);
    word.clear();
  }
  return words;
}

bool sameLine(const std::string& drawn, const std::string& wanted, double tolerance) {
  const auto a = wordsOf(drawn), b = wordsOf(wanted);
  if (a.size() != b.size()) return false;
  const double allowed = drawn.ends_with(" px") ? 1 : tolerance;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const bool numbers = isNumeric(a[i]) && isNumeric(b[i]);
    if (numbers ? std::abs(scanNumber(a[i]) - scanNumber(b[i])) > allowed : a[i] != b[i]) return false;
  }
  return true;
}

}  // namespace

std::vector<double> numbersOf(const std::string& line) {
  std::vector<double> numbers;
  for (const std::string& word : wordsOf(line)) {
    if (isNumeric(word)) numbers.push_back(scanNumber(word));
  }
  return numbers;
}

void expectSameLines(const std::vector<std::string>& drawn, const std::vector<std::string>& wanted,
                     double tolerance) {
  ASSERT_EQ(drawn.size(), wanted.size());
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    EXPECT_TRUE(sameLine(drawn[i], wanted[i], tolerance))
        << i << ": " << drawn[i] << "\ninstead of: " << wanted[i];
  }
}

FigureWithCurve splitCurve(const std::vector<std::string>& figure) {
  FigureWithCurve parts;
  const auto isClip = [](const std::string& line) { return line.starts_with("clip "); };
  const auto clip = std::find_if(figure.begin(), figure.end(), isClip);
  // The last axis ends with a refresh; the generator draws its segments behind it, before it clips.
  auto axesEnd = clip;
  while (axesEnd != figure.begin() && *(axesEnd - 1) != "refresh") --axesEnd;
  parts.rest.assign(figure.begin(), axesEnd);
  parts.curve.assign(axesEnd, clip);
  for (auto line = clip; line != figure.end(); ++line) {
    if (line->starts_with("polyline ")) {
      parts.curve.push_back(*line++);
    } else if (!isClip(*line)) {
      parts.rest.push_back(*line);
    }
  }
  return parts;
}

bool contains(const std::vector<std::string>& drawing, const std::string& start) {
  return std::any_of(drawing.begin(), drawing.end(),
                     [&](const std::string& line) { return line.starts_with(start); });
}

std::vector<std::string> withoutClip(const std::vector<std::string>& drawing) {
  std::vector<std::string> rest;
  std::copy_if(drawing.begin(), drawing.end(), std::back_inserter(rest),
               [](const std::string& line) { return !line.starts_with("clip "); });
  return rest;
}

std::vector<std::string> commandsOf(const std::string& text, const std::string& name) {
  std::vector<std::string> arguments;
  const std::string start = "\\" + name + "(";
  TextLines lines(text);
  while (const auto line = lines.next()) {
    if (line->starts_with(start))
      arguments.emplace_back(line->substr(start.size(), line->size() - start.size() - 1));
  }
  return arguments;
}

}  // namespace vk
