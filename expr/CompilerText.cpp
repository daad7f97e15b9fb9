#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "expr/CmpMod.h"

namespace vk {

std::string StripBlanks(const std::string& text) {
  std::string result = text;
  std::erase(result, ' ');
  return result;
}

int CountItems(const std::string& text) {
  return text.empty() ? 0 : static_cast<int>(std::count(text.begin(), text.end(), ',')) + 1;
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
  std::string done;
  std::string coming(text.rbegin(), text.rend());
  while (!coming.empty()) {
    done += coming.back();
    coming.pop_back();
    if (!done.ends_with(search)) continue;
    // What comes in its place is read as if it had always stood there, with what stands before it.
    done.resize(done.size() - search.size());
    coming.append(replacement.rbegin(), replacement.rend());
  }
  text = std::move(done);
}

void SplitAtMark(std::string& text, std::string& right, char mark) {
  const std::size_t at = text.find(mark);
  right = at == std::string::npos ? std::string() : trim(std::string_view(text).substr(at + 1));
  text = trim(std::string_view(text).substr(0, at));
}

}  // namespace vk
