#include "expr/FormulaText.h"

#include "base/Text.h"
#include "expr/TracedText.h"

namespace vk {

std::string StripBlanks(const std::string& text) {
  std::string result = text;
  std::erase(result, ' ');
  return result;
}

std::vector<std::string> splitItems(const std::string& text) {
  std::vector<std::string> items;
  if (text.empty()) return items;
  std::size_t begin = 0;
  for (std::size_t comma; (comma = text.find(',', begin)) != std::string::npos; begin = comma + 1) {
    items.push_back(text.substr(begin, comma - begin));
  }
  items.push_back(text.substr(begin));
  return items;
}

void ReplaceAll(std::string& text, const std::string& search, const std::string& replacement) {
  if (search.empty()) return;
  TracedText placed(text, 0);
  placed.replaceAll(search, replacement);
  text = placed.text();
}

void SplitAtMark(std::string& text, std::string& right, char mark) {
  const std::size_t at = text.find(mark);
  right = at == std::string::npos ? std::string() : trim(std::string_view(text).substr(at + 1));
  text = trim(std::string_view(text).substr(0, at));
}

}  // namespace vk
