#include "base/Text.h"

#include <algorithm>

namespace vk {

std::string trimLeft(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string trimRight(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string trim(std::string_view text) {
  return trimLeft(trimRight(text));
}

std::string upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return upper(c); });
  return result;
}

std::string left(std::string_view text, int count) {
  return count <= 0 ? std::string() : std::string(text.substr(0, static_cast<std::size_t>(count)));
}

std::string right(std::string_view text, int count) {
  return mid(text, std::max(1, length(text) - count + 1));
}

std::string shortened(std::string_view text, int count) {
  constexpr std::string_view kGap = "...";
  if (length(text) <= count) return std::string(text);
  const int end = (count - length(kGap)) / 2;
  return left(text, end) + std::string(kGap) + right(text, end);
}

std::string mid(std::string_view text, int start, int count) {
  if (start < 1 || start > length(text) || count <= 0) return {};
  return std::string(text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count)));
}

std::string mid(std::string_view text, int start) {
  return mid(text, start, length(text));
}

int position(std::string_view text, std::string_view what, int start) {
  if (start < 1) return 0;
  const auto found = text.find(what, static_cast<std::size_t>(start - 1));
  return found == std::string_view::npos ? 0 : static_cast<int>(found) + 1;
}

std::string repeat(int count, char c) {
  return std::string(static_cast<std::size_t>(std::max(0, count)), c);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return upper(x) == upper(y); });
}

}  // namespace vk
