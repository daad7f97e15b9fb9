#pragma once

#include <string>
#include <string_view>

namespace vk {

/// The errors of a file, as a list that people can still read when everything is wrong: it ends after the first
/// thousand entries and tells how many more there are.
class ErrorList {
 public:
  static constexpr int kMostEntries = 1000;

  /// Puts an entry behind the others: its lines, with CR LF between them and none at the end.
  void add(std::string_view entry);

  /// The list, each line CR LF ended; empty without errors.
  std::string text() const;

 private:
  std::string entries_;
  int count_ = 0;
};

/// What is said of a token that is none.
inline constexpr const char* kNoNumber = "   Dato NON numerico";

/// An entry for a line of a file by its number, perhaps for one of its tokens, from 1: what stands there, and on a line
/// of its own what is wrong with it.
std::string lineError(int line, std::string_view text, const std::string& reason, std::size_t token = 0);

}  // namespace vk
