#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vk {

/// Of the objects that are printed: one more when a key goes or changes its meaning.
inline constexpr int kSchemaVersion = 1;

/// A JSON value that is built once and written out. Texts are UTF-8. Numbers are written with the digits that
/// bring them back exactly; one that is not finite is written as null.
class Json {
 public:
  using List = std::vector<Json>;
  using Object =
      std::vector<std::pair<std::string, Json>>;  ///< members in the order in which they are written

  Json() = default;  ///< null
  Json(bool value) : value_(value) {}
  Json(int value) : value_(value) {}
  Json(double value) : value_(value) {}
  Json(const char* text) : value_(std::string(text)) {}
  Json(std::string text) : value_(std::move(text)) {}
  Json(List items) : value_(std::move(items)) {}
  Json(Object members) : value_(Members{std::move(members)}) {}

  /// One more member of an object.
  void add(std::string name, Json value) {
    std::get<Members>(value_).list.emplace_back(std::move(name), std::move(value));
  }

  /// The value on several lines, two blanks deeper for each level; ends without a line end.
  std::string text() const { return written(0); }
  /// The value on one line, without its end.
  std::string line() const { return written(kOneLine); }

 private:
  static constexpr int kOneLine = -1;  ///< in place of a depth
  std::string written(int depth) const;

  /// Of its own type: g++ 12 takes a variant of nothing but numbers, texts and vectors for whole also where memory was
  /// exhausted while it was copied.
  struct Members {
    Object list;
  };
  std::variant<std::monostate, bool, int, double, std::string, List, Members> value_;
};

}  // namespace vk
