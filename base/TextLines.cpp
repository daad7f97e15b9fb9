#include "base/TextLines.h"

#include <algorithm>

#include "base/Text.h"

namespace vk {

TextLines::TextLines(std::string_view text)
    : rest_(text), lineEnd_(text.find('\r') == std::string_view::npos ? kCrLf.substr(1) : kCrLf) {}

std::optional<std::string_view> TextLines::next() {
  if (rest_.empty()) return std::nullopt;
  const std::size_t end = rest_.find(lineEnd_);
  const std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + lineEnd_.size());
  return line;
}

std::vector<std::string> wrapped(const std::string& text, int width) {
  std::vector<std::string> lines(1);
  std::string_view rest = text;
  for (;;) {
    const std::string word(takeField(rest, [](char c) { return c == ' '; }));
    if (word.empty()) return lines;
    const bool begun = lines.back().find_first_not_of(' ') != std::string::npos;
    if (begun && length(lines.back()) + 1 + length(word) > width) lines.emplace_back(" ");
    lines.back() += (lines.back().empty() ? "" : " ") + word;
  }
}

std::string_view trimmedLine(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return line.substr(0, line.find_last_not_of(' ') + 1);
}

std::string cleanLine(std::string_view line) {
  std::string cleaned(trimmedLine(line));
  std::replace(cleaned.begin(), cleaned.end(), '\t', ' ');
  return cleaned;
}

bool isComment(std::string_view line) {
  const std::size_t first = line.find_first_not_of(' ');
  return first == std::string_view::npos || line[first] == '%';
}

}  // namespace vk
