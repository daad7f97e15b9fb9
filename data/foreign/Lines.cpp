#include "data/foreign/Lines.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace vk {
namespace {

constexpr std::string_view kBlanks = " \t\f\v";
constexpr std::string_view kCellEnds = ",;|\t";
constexpr int kMostJoined = 8;  // lines of one cell: beyond these a quote is a stray sign

std::string_view withoutBlankEnds(std::string_view line) {
  // A tab at an end may be an empty cell.
  const auto first = line.find_first_not_of(" \f\v");
  if (line.find_first_not_of(kBlanks) == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(" \f\v") + 1 - first);
}

bool hasOpenQuote(std::string_view line) {
  return std::count(line.begin(), line.end(), '"') % 2 != 0;
}

/// True for a line that ends within a quoted cell, as far as it alone tells.
bool opensQuote(std::string_view line) {
  if (!hasOpenQuote(line)) return false;
  const auto at = line.find_last_of('"');
  return at == 0 || kCellEnds.find(line[at - 1]) != std::string_view::npos;
}

/// Walks over all lines, blank ones included.
class Walk {
 public:
  explicit Walk(std::string_view text) : text_(text), feed_(find('\n', 0)), return_(find('\r', 0)) {}

  bool next() {
    if (at_ >= text_.size()) return false;
    const std::size_t end = std::min(feed_, return_);
    line_ = text_.substr(at_, end - at_);
    at_ = end + (return_ + 1 == feed_ ? 2 : 1);
    if (feed_ < at_) feed_ = find('\n', at_);
    if (return_ < at_) return_ = find('\r', at_);
    ++number_;
    return true;
  }
  std::string_view line() const { return line_; }
  int number() const { return number_; }

 private:
  std::size_t find(char c, std::size_t from) const { return std::min(text_.find(c, from), text_.size()); }

  std::string_view text_, line_;
  std::size_t at_ = 0;
  std::size_t feed_, return_;  ///< the next ones, the size of the text where there is none
  int number_ = 0;
};

/// Goes on to the line that closes the quote, if there is one near.
std::string_view joined(Walk& walk) {
  const std::string_view line = walk.line();
  Walk ahead = walk;
  for (int i = 0; i < kMostJoined && ahead.next(); ++i) {
    const std::string_view cells(line.data(), static_cast<std::size_t>(ahead.line().end() - line.begin()));
    if (hasOpenQuote(cells)) continue;
    walk = ahead;
    return cells;
  }
  return line;
}

}  // namespace

std::vector<ForeignLine> splitLines(std::string_view text) {
  std::vector<ForeignLine> lines;
  Walk walk(text);
  while (walk.next()) {
    const int number = walk.number();
    const std::string_view line = withoutBlankEnds(opensQuote(walk.line()) ? joined(walk) : walk.line());
    if (!line.empty()) lines.push_back({number, line});
  }
  return lines;
}

std::vector<ForeignLine> sampleOf(std::span<const ForeignLine> lines) {
  constexpr std::size_t kAtStart = 200;
  constexpr std::size_t kBeyond = 200;
  const auto start = lines.first(std::min(lines.size(), kAtStart));
  std::vector<ForeignLine> sample(start.begin(), start.end());
  const std::size_t step = std::max<std::size_t>(1, lines.size() / kBeyond);
  for (std::size_t i = kAtStart; i < lines.size(); i += step) sample.push_back(lines[i]);
  return sample;
}

std::string_view commentIn(std::string_view line, char separator) {
  constexpr std::array<std::string_view, 4> kSigns{"%", "#", "//", ";"};
  for (const std::string_view sign : kSigns) {
    if (!line.starts_with(sign) || sign.front() == separator) continue;
    const auto words = line.find_first_not_of("%#/; \t");
    return words == std::string_view::npos ? line : line.substr(words);
  }
  return {};
}

}  // namespace vk
