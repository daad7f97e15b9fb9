#include "data/foreign/Header.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace vk {
namespace {

using Cells = std::vector<std::string>;

bool isNumber(std::string_view cell, const Dialect& dialect) {
  return cellNumber(cell, dialect).has_value();
}

/// The cells between runs of two blanks or more, as tables with words in their names are set.
void splitAtWideBlanks(std::string_view line, std::vector<std::string_view>& cells) {
  cells.clear();
  while (!line.empty()) {
    const auto end = std::min(line.find("  "), line.size());
    cells.push_back(line.substr(0, end));
    line.remove_prefix(std::min(line.find_first_not_of(' ', end), line.size()));
  }
}

/// The line as so many names, split as the table is; where that is at blanks, and in comments, in any usual way. Empty
/// when it does not give as many.
Cells namesIn(std::string_view line, const Dialect& dialect, std::size_t columns) {
  constexpr std::array kSeparators{'\t', ';', '|', ',', ' '};
  std::vector<std::string_view> cells;
  const auto fits = [&] {
    return cells.size() == columns &&
           std::none_of(cells.begin(), cells.end(), [&](auto cell) { return isNumber(cell, dialect); });
  };
  const auto texts = [&] {
    Cells names;
    for (const std::string_view cell : cells) names.push_back(cellText(cell));
    return names;
  };
  if (dialect.separator != ' ') {
    splitCells(line, dialect, cells);
    // A last column that is empty everywhere may have a name.
    if (cells.size() > columns) cells.resize(columns);
    return fits() ? texts() : Cells();
  }
  splitAtWideBlanks(line, cells);
  if (fits()) return texts();
  for (const char separator : kSeparators) {
    splitCells(line, {separator, dialect.decimal}, cells);
    if (fits()) return texts();
  }
  return {};
}

/// True for a line that only rules off what stands above it.
bool isRuler(std::string_view line) {
  return line.find_first_not_of("-=_+*|: \t") == std::string_view::npos;
}

bool isBracketed(std::string_view cell) {
  return (cell.starts_with('(') && cell.ends_with(')')) || (cell.starts_with('[') && cell.ends_with(']'));
}

/// True for a unit as "mA", "m/s^2" or "\u00B0C": by its first factor.
bool isUnit(std::string_view cell) {
  constexpr std::array<std::string_view, 38> kUnits{
      "s",   "m",   "g",   "A",   "V",   "K",      "N",      "J",      "W",       "C",  "F",   "H",   "T",
      "S",   "h",   "l",   "L",   "%",   "-",      "Pa",     "Hz",     "Wb",      "eV", "dB",  "rad", "deg",
      "mol", "min", "bar", "sec", "ohm", "\u03A9", "\u2126", "\u00B0", "\u00B0C", "u",  "cps", "div"};
  constexpr std::array<std::string_view, 13> kPrefixes{"",       "k",      "M", "G", "T", "m", "u",
                                                       "\u00B5", "\u03BC", "n", "p", "c", "d"};
  const std::string_view factor = cell.substr(0, cell.find_first_of("/*^.0123456789 "));
  return std::any_of(kPrefixes.begin(), kPrefixes.end(), [&](std::string_view prefix) {
    return factor.starts_with(prefix) &&
           std::find(kUnits.begin(), kUnits.end(), factor.substr(prefix.size())) != kUnits.end();
  });
}

/// True for cells that may be the units of the names above them.
bool areUnits(const Cells& cells) {
  return std::all_of(cells.begin(), cells.end(), [](const std::string& cell) {
    return cell.empty() || isBracketed(cell) || isUnit(cell);
  });
}

Cells withUnits(Cells names, const Cells& units) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!units[i].empty()) names[i] += isBracketed(units[i]) ? " " + units[i] : " (" + units[i] + ")";
  }
  return names;
}

bool isSingleCell(std::string_view line, const Dialect& dialect) {
  if (dialect.separator == ' ') return true;
  std::vector<std::string_view> cells;
  splitCells(line, dialect, cells);
  return cells.size() < 2;
}

/// The names in the last of these lines that holds any, with the units that may follow them.
Cells lastNames(const std::vector<std::string_view>& lines, const Dialect& dialect, std::size_t columns) {
  for (std::size_t i = lines.size(); i > 0; --i) {
    const Cells names = namesIn(lines[i - 1], dialect, columns);
    if (names.empty()) continue;
    const Cells above = i > 1 && areUnits(names) ? namesIn(lines[i - 2], dialect, columns) : Cells();
    return above.empty() ? names : withUnits(above, names);
  }
  return {};
}

}  // namespace

ForeignHeader readHeader(std::span<const ForeignLine> lines, const Dialect& table, std::size_t columns,
                         bool counted) {
  const Dialect dialect{table.separator, table.decimal};  // names are never pairs
  std::vector<std::string_view> words, comments, cells;
  for (const ForeignLine& line : lines) {
    splitCells(line.text, dialect, cells);
    if (cells.empty()) continue;  // nothing but separators
    const std::string_view comment = commentIn(line.text, dialect.separator);
    (comment.empty() ? words : comments).push_back(comment.empty() ? line.text : comment);
  }
  ForeignHeader header;
  header.lines = static_cast<int>(words.size());
  std::erase_if(words, [](std::string_view line) { return equalIgnoringCase(left(line, 4), "sep="); });
  if (counted) words.pop_back();
  std::erase_if(words, isRuler);
  const bool titles =
      words.size() >= 2 && isSingleCell(words.back(), dialect) && isSingleCell(words.end()[-2], dialect);
  header.names = counted && titles ? Cells() : lastNames(words, dialect, columns);
  if (header.names.empty() && titles && (counted || words.size() == 2)) {
    header.axes = {cellText(words.end()[-2]), cellText(words.back())};
  } else if (header.names.empty() && !comments.empty()) {
    header.names = lastNames(comments, dialect, columns);
    if (header.names.empty()) header.names = lastNames(comments, {' ', dialect.decimal}, columns);
    if (!header.names.empty()) ++header.lines;
  }
  return header;
}

}  // namespace vk
