#include "batch/Json.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vk {
namespace {

std::string numberText(double value) {
  if (!std::isfinite(value)) return "null";
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), end.ptr};
}

std::string quoted(const std::string& text) {
  constexpr const char* kHex = "0123456789abcdef";
  std::string result = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      result += {'\\', c};
    } else if (code < 0x20) {
      result += {'\\', 'u', '0', '0', kHex[code >> 4], kHex[code & 15]};
    } else {
      result += c;
    }
  }
  return result + "\"";
}

/// Items between brackets, one on a line; below depth 0 all of them on one.
std::string block(const std::vector<std::string>& items, char open, char close, int depth) {
  if (items.empty()) return {open, close};
  const auto indent = [&](int level) {
    return depth < 0 ? "" : "\n" + std::string(static_cast<std::size_t>(2 * level), ' ');
  };
  std::string result(1, open);
  for (std::size_t i = 0; i < items.size(); ++i)
    result += (i == 0 ? "" : depth < 0 ? ", " : ",") + indent(depth + 1) + items[i];
  return result + indent(depth) + close;
}

}  // namespace

std::string Json::written(int depth) const {
  struct Writer {
    int depth, inner;
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(int value) const { return std::to_string(value); }
    std::string operator()(double value) const { return numberText(value); }
    std::string operator()(const std::string& value) const { return quoted(value); }
    std::string operator()(const List& list) const {
      std::vector<std::string> items;
      for (const Json& item : list) items.push_back(item.written(inner));
      return block(items, '[', ']', depth);
    }
    std::string operator()(const Members& members) const {
      std::vector<std::string> items;
      for (const auto& [name, value] : members.list)
        items.push_back(quoted(name) + ": " + value.written(inner));
      return block(items, '{', '}', depth);
    }
  };
  return std::visit(Writer{depth, depth < 0 ? depth : depth + 1}, value_);
}

}  // namespace vk
