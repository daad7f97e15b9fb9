#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// A part of a definition, in characters from its start.
struct Place {
  int first = 0;
  int length = 0;
};

/// A text made from a part of a definition, of which each character knows where it comes from.
class TracedText {
 public:
  TracedText() = default;
  /// The text as it stands from character `first` of the definition on.
  TracedText(std::string_view text, int first);

  const std::string& text() const { return text_; }
  std::size_t size() const { return text_.size(); }
  char operator[](std::size_t at) const { return text_[at]; }
  /// Where `count` characters from `at` on come from.
  Place placeOf(std::size_t at, std::size_t count) const;

  /// A part, which keeps its places.
  TracedText part(std::size_t begin, std::size_t end) const;
  TracedText withoutBlanks() const;
  TracedText inCapitals() const;
  /// The items of a comma list; none for an empty text.
  std::vector<TracedText> items() const;

  /// Makes room for that many characters.
  void reserve(std::size_t size);
  void append(std::string_view text, int from);
  void append(const TracedText& other, std::size_t begin, std::size_t end);
  /// Replaces every occurrence, scanning again from the start after each replacement.
  void replaceAll(std::string_view search, std::string_view replacement);
  /// Puts `replacement` at these places, which rise, each for `count` characters.
  void replaceAt(const std::vector<std::size_t>& places, std::size_t count, std::string_view replacement);

 private:
  std::string text_;
  std::vector<int> from_;
  int start_ = 0;  // where it stands as long as it is empty
};

}  // namespace vk
