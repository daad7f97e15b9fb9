#include "expr/TracedText.h"

#include <algorithm>
#include <numeric>

#include "base/Text.h"

namespace vk {

TracedText::TracedText(std::string_view text, int first) : text_(text), from_(text.size()), start_(first) {
  std::iota(from_.begin(), from_.end(), first);
}

Place TracedText::placeOf(std::size_t at, std::size_t count) const {
  if (text_.empty()) return {start_, 0};
  const int first = from_[std::min(at, from_.size() - 1)];
  if (count == 0 || at >= from_.size()) return {first, 0};
  return {first, from_[std::min(at + count, from_.size()) - 1] - first + 1};
}

TracedText TracedText::part(std::size_t begin, std::size_t end) const {
  TracedText result({}, begin < size() ? from_[begin] : text_.empty() ? start_ : from_.back() + 1);
  result.append(*this, begin, end);
  return result;
}

TracedText TracedText::withoutBlanks() const {
  if (text_.find(' ') == std::string::npos) return *this;
  TracedText result({}, start_);
  result.reserve(text_.size());
  for (std::size_t i = 0; i < text_.size(); ++i) {
    if (text_[i] == ' ') continue;
    result.text_ += text_[i];
    result.from_.push_back(from_[i]);
  }
  return result;
}

TracedText TracedText::inCapitals() const {
  TracedText result = *this;
  result.text_ = upper(text_);
  return result;
}

std::vector<TracedText> TracedText::items() const {
  std::vector<TracedText> items;
  if (text_.empty()) return items;
  std::size_t begin = 0;
  for (std::size_t comma; (comma = text_.find(',', begin)) != std::string::npos; begin = comma + 1) {
    items.push_back(part(begin, comma));
  }
  items.push_back(part(begin, text_.size()));
  return items;
}

void TracedText::reserve(std::size_t size) {
  text_.reserve(size);
  from_.reserve(size);
}

void TracedText::append(std::string_view text, int from) {
  text_ += text;
  from_.resize(text_.size(), from);
}

void TracedText::append(const TracedText& other, std::size_t begin, std::size_t end) {
  text_.append(other.text_, begin, end - begin);
  from_.insert(from_.end(), other.from_.begin() + static_cast<std::ptrdiff_t>(begin),
               other.from_.begin() + static_cast<std::ptrdiff_t>(end));
}

void TracedText::replaceAll(std::string_view search, std::string_view replacement) {
  if (text_.find(search) == std::string::npos) return;
  TracedText done;
  done.reserve(2 * text_.size());
  TracedText coming;
  coming.text_.assign(text_.rbegin(), text_.rend());
  coming.from_.assign(from_.rbegin(), from_.rend());
  while (!coming.text_.empty()) {
    done.text_ += coming.text_.back();
    done.from_.push_back(coming.from_.back());
    coming.text_.pop_back();
    coming.from_.pop_back();
    if (!done.text_.ends_with(search)) continue;
    // What comes in its place is read as if it had always stood there, with what stands before it.
    const std::size_t begin = done.size() - search.size();
    for (std::size_t i = replacement.size(); i-- > 0;) {
      coming.append(replacement.substr(i, 1), done.from_[begin + std::min(i, search.size() - 1)]);
    }
    done.text_.resize(begin);
    done.from_.resize(begin);
  }
  *this = std::move(done);
}

void TracedText::replaceAt(const std::vector<std::size_t>& places, std::size_t count,
                           std::string_view replacement) {
  TracedText result;
  result.reserve(text_.size() + places.size() * replacement.size());
  std::size_t done = 0;
  for (const std::size_t place : places) {
    result.append(*this, done, place);
    result.append(replacement, from_[place]);
    done = place + count;
  }
  result.append(*this, done, text_.size());
  *this = std::move(result);
}

}  // namespace vk
