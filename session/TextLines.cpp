#include "session/TextLines.h"

#include <algorithm>

#include "base/Text.h"

namespace vk {

TextLines splitLines(std::string_view text) {
  const std::string_view lineEnd = text.find('\r') == std::string_view::npos ? kCrLf.substr(1) : kCrLf;
  TextLines result;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find(lineEnd, start)) != std::string_view::npos;) {
    result.lines.push_back(text.substr(start, end - start));
    start = end + lineEnd.size();
  }
  result.rest = text.substr(start);
  return result;
}

std::string cleanLine(std::string_view line) {
  std::string cleaned = trim(line);
  std::replace(cleaned.begin(), cleaned.end(), '\t', ' ');
  return cleaned;
}

bool isComment(std::string_view cleanedLine) {
  return cleanedLine.empty() || cleanedLine.front() == '%';
}

}  // namespace vk
