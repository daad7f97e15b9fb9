#include "data/foreign/Cells.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/NumberText.h"
#include "base/Text.h"

namespace vk {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view cell) {
  while (!cell.empty() && isBlank(cell.front())) cell.remove_prefix(1);
  while (!cell.empty() && isBlank(cell.back())) cell.remove_suffix(1);
  return cell;
}

/// Takes a cell in quotes out of the front of `rest`; nothing when the quote is not closed at the end of a cell.
template <class Separates>
std::optional<std::string_view> takeQuoted(std::string_view& rest, Separates separates) {
  for (std::size_t at = rest.find('"', 1); at != std::string_view::npos; at = rest.find('"', at + 2)) {
    if (rest.substr(at + 1, 1) == "\"") continue;
    const std::string_view cell = rest.substr(1, at - 1);
    std::string_view behind = rest.substr(at + 1);
    while (!behind.empty() && isBlank(behind.front()) && !separates(behind.front())) behind.remove_prefix(1);
    if (!behind.empty() && !separates(behind.front())) return std::nullopt;
    rest = behind;
    return trimmed(cell);
  }
  return std::nullopt;
}

template <class Separates>
std::string_view takeCell(std::string_view& rest, Separates separates) {
  if (rest.starts_with('"')) {
    if (const auto quoted = takeQuoted(rest, separates)) return *quoted;
  }
  const auto end = std::find_if(rest.begin(), rest.end(), separates);
  const std::string_view cell(rest.begin(), end);
  rest = {end, rest.end()};
  return trimmed(cell);
}

void splitAtBlanks(std::string_view rest, std::vector<std::string_view>& cells) {
  for (rest = trimmed(rest); !rest.empty(); rest = trimmed(rest)) cells.push_back(takeCell(rest, isBlank));
}

void splitAtSigns(std::string_view rest, char separator, std::vector<std::string_view>& cells) {
  const auto separates = [&](char c) { return c == separator; };
  for (;;) {
    while (!rest.empty() && isBlank(rest.front()) && rest.front() != separator) rest.remove_prefix(1);
    cells.push_back(takeCell(rest, separates));
    if (rest.empty()) return;
    rest.remove_prefix(1);
  }
}

/// Makes each two cells one. A line with an odd number of cells holds none.
void joinPairs(std::vector<std::string_view>& cells) {
  if (cells.size() % 2 != 0) return cells.clear();
  for (std::size_t i = 0; i < cells.size(); i += 2) {
    const char* end = cells[i + 1].data() + cells[i + 1].size();
    cells[i / 2] = {cells[i].data(), static_cast<std::size_t>(end - cells[i].data())};
  }
  cells.resize(cells.size() / 2);
}

/// The digits of a whole number in groups of three; nothing when the groups are not such.
std::optional<std::string> withoutGroups(std::string_view whole, char sign) {
  constexpr std::size_t kGroup = 3;
  std::string digits(whole.substr(0, whole.find(sign)));
  if (digits.empty() || digits.size() > kGroup || digits.front() == '0') return std::nullopt;
  for (std::string_view rest = whole.substr(digits.size()); !rest.empty();) {
    const std::string_view group = rest.substr(1, kGroup);
    if (rest.front() != sign || group.size() < kGroup) return std::nullopt;
    digits += group;
    rest.remove_prefix(1 + kGroup);
  }
  if (!std::all_of(digits.begin(), digits.end(), isDigit)) return std::nullopt;
  return digits;
}

/// The sign that sets groups of digits apart in a whole number; 0 for a plain one.
char groupSign(std::string_view whole, const Dialect& dialect) {
  const bool blanks = dialect.separator != ' ' && dialect.separator != ',';
  for (const char c : whole) {
    if (c == '\'' || (c == ' ' && blanks) || (c == (dialect.decimal == '.' ? ',' : '.'))) return c;
  }
  return 0;
}

/// A number that is not written as in data files, as it would be there; empty for what is none.
std::string plainNumber(std::string_view cell, const Dialect& dialect) {
  std::string plain;
  if (cell.starts_with('+') || cell.starts_with('-')) {
    plain = cell.front();
    cell.remove_prefix(1);
  }
  const std::string_view whole =
      cell.substr(0, std::min(cell.find_first_of("EeDd"), cell.find(dialect.decimal)));
  std::string_view rest = cell.substr(whole.size());
  if (const char sign = groupSign(whole, dialect)) {
    const auto digits = withoutGroups(whole, sign);
    const bool hasExponent = rest.find_first_of("EeDd") != std::string_view::npos;
    if (!digits || hasExponent) return {};
    plain += *digits;
  } else {
    plain += whole;
  }
  if (rest.starts_with(dialect.decimal)) {
    rest.remove_prefix(1);
    // A comma behind a number more often ends a cell.
    if (rest.empty() || !isDigit(rest.front())) return {};
    plain += '.';
  }
  return rest.find_first_of(".,") == std::string_view::npos ? plain.append(rest) : std::string();
}

/// The number in a cell that has no other sign than one decimal comma, as most have; nothing for any other cell.
std::optional<double> commaNumber(std::string_view cell) {
  std::array<char, 32> plain{};
  const auto comma = cell.find(',');
  if (comma == std::string_view::npos) return cell.find('.') == comma ? numberIn(cell) : std::nullopt;
  if (cell.size() > plain.size() || comma + 1 == cell.size() || !isDigit(cell[comma + 1]))
    return std::nullopt;
  std::copy(cell.begin(), cell.end(), plain.begin());
  plain[comma] = '.';
  return numberIn({plain.data(), cell.size()});
}

}  // namespace

void splitCells(std::string_view line, const Dialect& dialect, std::vector<std::string_view>& cells) {
  cells.clear();
  if (dialect.separator == ' ') {
    splitAtBlanks(line, cells);
  } else {
    splitAtSigns(line, dialect.separator, cells);
  }
  while (!cells.empty() && cells.back().empty()) cells.pop_back();
  if (dialect.paired) joinPairs(cells);
}

std::string cellText(std::string_view cell) {
  std::string text;
  for (const char c : cell) {
    const bool again = c == '"' && text.ends_with('"');
    if (!again) text += code(c) < ' ' ? ' ' : c;
  }
  return text;
}

std::optional<double> cellNumber(std::string_view cell, const Dialect& dialect) {
  if (const auto value = dialect.decimal == '.' ? numberIn(cell) : commaNumber(cell)) return value;
  const char first = cell.empty() ? ' ' : cell.front();
  if (!isDigit(first) && first != '+' && first != '-' && first != dialect.decimal) return std::nullopt;
  return numberIn(plainNumber(cell, dialect));
}

}  // namespace vk
