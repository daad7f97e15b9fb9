#include "data/foreign/Columns.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "data/foreign/Refusal.h"

namespace vk {
namespace {

constexpr std::size_t kMostColumns = 4;

/// Of each column the number of cells that are numbers, in the lines with `cells` cells.
std::vector<std::size_t> numbersIn(const std::vector<ForeignLine>& lines, const Dialect& dialect,
                                   std::map<std::size_t, std::size_t>& lengths) {
  std::vector<std::size_t> numbers;
  std::vector<std::string_view> cells;
  for (const ForeignLine& line : lines) {
    if (!commentIn(line.text, dialect.separator).empty()) continue;
    splitCells(line.text, dialect, cells);
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (cellNumber(cells[i], dialect)) found.push_back(i);
    }
    if (found.size() < kLeastNumbers) continue;
    ++lengths[cells.size()];
    numbers.resize(std::max(numbers.size(), cells.size()));
    for (const std::size_t i : found) ++numbers[i];
  }
  return numbers;
}

/// "1 (t), 2 (V)": the columns as an option may name them.
std::string listed(const std::vector<std::size_t>& columns, const std::vector<std::string>& names) {
  std::string list;
  for (const std::size_t column : columns) {
    list += (list.empty() ? "" : ", ") + std::to_string(column + 1);
    if (column < names.size() && !names[column].empty()) list += " (" + names[column] + ")";
  }
  return list;
}

/// The name without the unit behind it.
std::string_view bareName(std::string_view name) {
  const auto unit = std::min(name.find_first_of("([,"), name.size());
  return name.substr(0, name.find_last_not_of(' ', unit == 0 ? 0 : unit - 1) + 1);
}

std::size_t columnNamed(const std::string& word, const TableShape& shape,
                        const std::vector<std::string>& names) {
  const auto column = [&](bool (*same)(std::string_view, std::string_view)) {
    const auto isMeant = [&](const std::string& name) {
      return same(name, word) || same(bareName(name), word);
    };
    return static_cast<std::size_t>(std::ranges::find_if(names, isMeant) - names.begin());
  };
  // "t" and "T" may stand side by side.
  const auto isWord = [](std::string_view a, std::string_view b) { return a == b; };
  if (const std::size_t i = column(isWord); i < names.size()) return i;
  if (const std::size_t i = column(equalIgnoringLetterCase); i < names.size()) return i;
  const auto number = numberIn(word);
  for (std::size_t i = 0; i < shape.cells; ++i) {
    if (number == static_cast<double>(i + 1)) return i;
  }
  throw Refusal("--columns: non c'e` una colonna \"" + word +
                "\"; colonne di numeri: " + listed(shape.numbered, names));
}

Roles inOrder(const std::vector<std::size_t>& columns) {
  Roles roles{columns[0], columns[1]};
  if (columns.size() == kMostColumns) roles.dx = columns[2];
  if (columns.size() > 2) roles.dy = columns.back();
  return roles;
}

/// The name of the quantity whose error this one is, as in "dt", "err_t", "sigma t"; empty for another name.
std::string_view errorOf(std::string_view name) {
  constexpr std::array<std::string_view, 11> kMarks{"delta", "sigma", "errore", "error", "err", "inc",
                                                    "Δ",     "δ",     "σ",      "d",     "s"};
  name = bareName(name);
  for (const std::string_view mark : kMarks) {
    if (name.size() <= mark.size() || !equalIgnoringCase(name.substr(0, mark.size()), mark)) continue;
    const auto rest = name.find_first_not_of("_ .", mark.size());
    return rest == std::string_view::npos ? std::string_view() : name.substr(rest);
  }
  return {};
}

/// Names that say x, dx, y, dy or x, dx, y leave open whether the names or the usual order are right.
void refuseOtherOrder(const std::vector<std::size_t>& columns, const std::vector<std::string>& names) {
  if (columns.size() < 3 || columns.back() >= names.size()) return;
  const auto of = errorOf(names[columns[1]]);
  if (of.empty() || !equalIgnoringLetterCase(of, bareName(names[columns[0]]))) return;
  const auto number = [&](std::size_t i) { return std::to_string(columns[i] + 1); };
  std::string usual = number(0);
  for (std::size_t i = 1; i < columns.size(); ++i) usual += "," + number(i);
  const std::string named =
      number(0) + "," + number(2) + "," + number(1) + (columns.size() > 3 ? "," + number(3) : "");
  throw Refusal("la colonna " + number(1) + " (" + names[columns[1]] + ") puo` contenere gli errori di " +
                names[columns[0]] + " (--columns " +
                (columns.size() > 3 ? named : number(0) + "," + number(2)) + ") o la y (--columns " + usual +
                "): indicare le colonne");
}

void checkCount(const TableShape& shape, const std::vector<std::string>& names) {
  const std::size_t count = shape.numbered.size();
  if (count < kLeastNumbers) throw Refusal("c'e` una sola colonna di numeri: ne servono almeno due, x e y");
  if (count <= kMostColumns) return;
  throw Refusal(std::to_string(count) + " colonne di numeri: " + listed(shape.numbered, names) +
                "; indicare quali usare con --columns x,y[,dx],dy");
}

}  // namespace

TableShape shapeOf(const std::vector<ForeignLine>& lines, const Dialect& dialect) {
  std::map<std::size_t, std::size_t> lengths;
  const std::vector<std::size_t> numbers = numbersIn(lines, dialect, lengths);
  TableShape shape;
  std::size_t rows = 0, most = 0;
  for (const auto& [length, count] : lengths) {
    rows += count;
    if (count < most) continue;
    most = count;
    shape.cells = length;
  }
  for (std::size_t i = 0; i < std::min(numbers.size(), shape.cells); ++i) {
    if (2 * numbers[i] >= rows) shape.numbered.push_back(i);
  }
  return shape;
}

std::vector<std::size_t> Roles::columns() const {
  std::vector<std::size_t> columns{x, y};
  if (dx != kNone) columns.push_back(dx);
  if (dy != kNone) columns.push_back(dy);
  return columns;
}

Roles usualRoles(const TableShape& shape) {
  if (shape.numbered.size() < kLeastNumbers) return {};
  if (shape.numbered.size() > kMostColumns) return {shape.numbered[0], shape.numbered[1]};
  return inOrder(shape.numbered);
}

Roles rolesOf(const TableShape& shape, const std::vector<std::string>& names,
              const std::vector<std::string>& wanted) {
  if (wanted.empty()) {
    checkCount(shape, names);
    refuseOtherOrder(shape.numbered, names);
    return inOrder(shape.numbered);
  }
  std::vector<std::size_t> columns;
  for (const std::string& word : wanted) columns.push_back(columnNamed(word, shape, names));
  if (columns.size() < kLeastNumbers || columns.size() > kMostColumns) {
    throw Refusal("--columns: si attendono da due a quattro colonne, x,y[,dx],dy");
  }
  return inOrder(columns);
}

}  // namespace vk
