#pragma once

#include <string>
#include <vector>

/// The text handling of the formula language.
namespace vk {

/// The text without any blank.
std::string StripBlanks(const std::string& text);
/// The items of a comma list; none for an empty text, else one more than there are commas.
std::vector<std::string> splitItems(const std::string& text);
/// Replaces every occurrence, scanning again from the start after each replacement.
void ReplaceAll(std::string& text, const std::string& search, const std::string& replacement);
/// Leaves the trimmed part before the first mark in `text` and the trimmed part behind it in `right`.
void SplitAtMark(std::string& text, std::string& right, char mark);

}  // namespace vk
